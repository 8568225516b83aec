#include "overlay/OverlayWindowController.h"

#include "catalog/LauncherStore.h"
#include "overlay/EscapeMonitor.h"
#include "overlay/HideAnimation.h"
#include "overlay/KeyboardBuffer.h"
#include "overlay/MainScreen.h"
#include "overlay/MotionPreference.h"
#include "overlay/OverlayContent.h"
#include "overlay/OverlayWindow.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace zelmo {

OverlayWindowController::OverlayWindowController(LauncherStore& store, OverlayServices services)
    : m_store(store), m_services(services) {
    QScreen* screen = m_services.mainScreen.mainScreen();
    if (!screen)
        qFatal("There is no screen.");
    m_window = std::make_unique<OverlayWindow>();
    m_animation = std::make_unique<HideAnimation>();
    place(screen);
    m_window->onEscape = [this] { m_store.hideOverlay(); };
    m_window->onClose = m_window->onEscape;
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &OverlayWindowController::followScreens);
    connect(m_window.get(), &QWindow::screenChanged, this, &OverlayWindowController::followScreens);
}

OverlayWindowController::~OverlayWindowController() = default;

void OverlayWindowController::show() {
    m_isHiding = false;
    m_services.keyboardBuffer.begin();
    QScreen* screen = m_services.mainScreen.mainScreen();
    // Else the screen shows the wall, or what it has just left behind.
    if (screen && !m_window->isVisible() && !m_animation->isRunning())
        m_services.content.prepare(*screen);
    m_animation->dropPicture();
    place(screen);
    installEscapeMonitor();
    if (!m_previousPresentationOptions)
        m_previousPresentationOptions = m_services.presentation.options();
    m_services.presentation.setOptions(PresentationOption::autoHideDock | PresentationOption::autoHideMenuBar,
                                       *m_window);
    m_window->raise();
    m_window->requestActivate();
    // The window manager maps the window while the content is loaded; nothing is painted before both are done.
    if (!std::exchange(m_contentIsLoaded, true))
        m_services.content.load(*m_window);
    m_services.keyboardBuffer.deliverTo(*m_window);
}

void OverlayWindowController::hide() {
    if (m_isHiding)
        return;
    m_isHiding = true;
    m_services.keyboardBuffer.cancel();
    removeEscapeMonitor();
    const auto completed = [this] { completeHide(); };
    // The picture is there before the desktop takes the wall's place.
    if (m_window->isVisible() && !m_services.motion.reducesMotion())
        m_animation->start(m_window->grabWindow(), m_window->screen(), m_window->geometry(), collapsedFrame(),
                           completed);
    else
        m_animation->startUnseen(completed);
    if (m_previousPresentationOptions)
        m_services.presentation.setOptions(*std::exchange(m_previousPresentationOptions, std::nullopt), *m_window);
}

// Also when the wall was shown again meanwhile: then it goes after all.
void OverlayWindowController::completeHide() {
    m_window->hide();
    place(m_services.mainScreen.mainScreen());
    m_services.content.putAway();
    m_isHiding = false;
}

void OverlayWindowController::place(QScreen* screen) {
    if (!screen)
        return;
    m_window->setScreen(screen);
    m_window->setGeometry(screen->geometry());
    connect(screen, &QScreen::geometryChanged, this, &OverlayWindowController::followScreens, Qt::UniqueConnection);
}

// The screen has become another one, or is another one, while the wall is up.
void OverlayWindowController::followScreens() {
    if (m_window->isVisible() && !m_isHiding && m_window->screen() &&
        m_window->geometry() != m_window->screen()->geometry())
        place(m_window->screen());
}

QRect OverlayWindowController::collapsedFrame() const {
    const QScreen* screen = m_window->screen() ? m_window->screen() : m_services.mainScreen.mainScreen();
    if (!screen)
        return {QPoint(), collapsedSize};
    const QRect frame = screen->geometry();
    return {QPoint(frame.x() + (frame.width() - collapsedSize.width()) / 2, frame.y() + collapsedTop), collapsedSize};
}

void OverlayWindowController::installEscapeMonitor() {
    removeEscapeMonitor();
    m_escapeMonitor = std::make_unique<EscapeMonitor>([this] { m_store.hideOverlay(); });
}

void OverlayWindowController::removeEscapeMonitor() {
    m_escapeMonitor.reset();
}

} // namespace zelmo
