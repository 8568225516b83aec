#pragma once

#include "catalog/Overlay.h"

#include <memory>

namespace zelmo {

class KeyboardBuffer;
class LauncherStore;
class MainScreen;
class OverlayContent;
class OverlayWindow;

// What the controller needs besides the store. All of it outlives the controller.
struct OverlayServices {
    MainScreen& mainScreen;
    KeyboardBuffer& keyboardBuffer;
    OverlayContent& content;
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
    OverlayServices m_services;
    std::unique_ptr<OverlayWindow> m_window;
    bool m_contentIsLoaded = false;
};

} // namespace zelmo
