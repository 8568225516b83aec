#pragma once

#include "catalog/Overlay.h"
#include "overlay/SystemPresentation.h"

#include <QObject>
#include <QRect>

#include <memory>
#include <optional>

class QScreen;

namespace zelmo {

class EscapeMonitor;
class HideAnimation;
class KeyboardBuffer;
class LauncherStore;
class MainScreen;
class MotionPreference;
class OverlayContent;
class OverlayWindow;

// What the controller needs besides the store. All of it outlives the controller.
struct OverlayServices {
    MainScreen& mainScreen;
    KeyboardBuffer& keyboardBuffer;
    SystemPresentation& presentation;
    MotionPreference& motion;
    OverlayContent& content;
};

// Builds the wall's window, shows it on the screen that the user works on, and has it shrink away when it hides. Owned
// by the store, which drives it; lives on the main thread.
class OverlayWindowController : public QObject, public Overlay {
    Q_OBJECT

public:
    // The bar that the wall shrinks into, and how far below the screen's top edge it ends; points.
    static constexpr QSize collapsedSize{76, 18};
    static constexpr int collapsedTop = 4;

    // Without any screen the program can't run.
    OverlayWindowController(LauncherStore& store, OverlayServices services);
    ~OverlayWindowController() override;

    void show() override;
    void hide() override;

    OverlayWindow& window() const { return *m_window; }
    bool isHiding() const { return m_isHiding; }
    bool hasEscapeMonitor() const { return m_escapeMonitor != nullptr; }
    // What is to be given back to the desktop when the wall hides.
    std::optional<PresentationOptions> previousPresentationOptions() const { return m_previousPresentationOptions; }

private:
    void place(QScreen* screen);
    void followScreens();
    void installEscapeMonitor();
    void removeEscapeMonitor();
    QRect collapsedFrame() const;
    void completeHide();

    LauncherStore& m_store;
    OverlayServices m_services;
    std::unique_ptr<OverlayWindow> m_window;
    std::unique_ptr<EscapeMonitor> m_escapeMonitor;
    std::optional<PresentationOptions> m_previousPresentationOptions;
    bool m_isHiding = false;
    std::unique_ptr<HideAnimation> m_animation;
    bool m_contentIsLoaded = false;
};

} // namespace zelmo
