#pragma once

#include "catalog/Overlay.h"

#include <functional>
#include <memory>

namespace zelmo {

class KeyboardBuffer;
class LauncherStore;
class MainScreen;
class OverlayWindow;

// What the controller needs besides the store. All of it outlives the controller.
struct OverlayServices {
    MainScreen& mainScreen;
    KeyboardBuffer& keyboardBuffer;
    // Puts the wall's content into the window, once.
    std::function<void(OverlayWindow&)> loadContent;
};

// Builds the wall's window, shows it on the screen that the user works on, and hides it. Owned by the
// store, which drives it; lives on the main thread.
class OverlayWindowController : public Overlay {
public:
    OverlayWindowController(LauncherStore& store, OverlayServices services);
    ~OverlayWindowController() override;

    void show() override;
    void hide() override;

private:
    enum class Content { missing, loaded };

    OverlayServices m_services;
    std::unique_ptr<OverlayWindow> m_window;
    Content m_content = Content::missing;
};

} // namespace zelmo
