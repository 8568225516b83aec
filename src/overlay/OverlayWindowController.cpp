#include "overlay/OverlayWindowController.h"

#include "catalog/LauncherStore.h"
#include "overlay/KeyboardBuffer.h"
#include "overlay/MainScreen.h"
#include "overlay/OverlayContent.h"
#include "overlay/OverlayWindow.h"

#include <QScreen>

namespace zelmo {

OverlayWindowController::OverlayWindowController(LauncherStore& store, OverlayServices services)
    : m_services(std::move(services)), m_window(std::make_unique<OverlayWindow>()) {
    m_window->onEscape = [&store] { store.hideOverlay(); };
    m_window->onClose = m_window->onEscape;
}

OverlayWindowController::~OverlayWindowController() = default;

void OverlayWindowController::show() {
    m_services.keyboardBuffer.begin();
    if (QScreen* screen = m_services.mainScreen.mainScreen()) {
        m_services.content.prepare(*screen);
        m_window->setScreen(screen);
        m_window->setGeometry(screen->geometry());
    }
    m_window->showFullScreen();
    m_window->raise();
    m_window->requestActivate();
    // The window manager maps the window while the content is loaded; nothing is painted before both are done.
    if (!std::exchange(m_contentIsLoaded, true))
        m_services.content.load(*m_window);
    m_services.keyboardBuffer.deliverTo(*m_window);
}

void OverlayWindowController::hide() {
    m_services.keyboardBuffer.cancel();
    m_window->hide();
    m_services.content.putAway();
}

} // namespace zelmo
