#include "settings/AppSettingsWindowController.h"

#include "overlay/MainScreen.h"
#include "settings/ProgramActivation.h"
#include "settings/SettingsMetrics.h"
#include "settings/SettingsWindow.h"

#include <QScreen>

namespace zelmo {

AppSettingsWindowController::AppSettingsWindowController(const SettingsServices& services,
                                                         const SettingsWindowServices& windowServices)
    : m_services(services), m_windowServices(windowServices) {}

AppSettingsWindowController::~AppSettingsWindowController() = default;

void AppSettingsWindowController::build() {
    // Of the title bar, which nobody knows before the window is up.
    constexpr int frameRoom = 48;
    m_window = std::make_unique<SettingsWindow>(m_services, m_windowServices.colorScheme, m_windowServices.motion);
    QSize size(SettingsMetrics::windowWidth(), SettingsMetrics::windowHeight());
    const double textScale = SettingsMetrics::desktopTextScale();
    QSize least = QSize(SettingsMetrics::windowMinimumWidth(), SettingsMetrics::windowMinimumHeight()) * textScale;
    if (QScreen* screen = m_windowServices.mainScreen.mainScreen()) {
        const QRect area = screen->availableGeometry();
        const QSize largest = area.size() - QSize(0, frameRoom);
        size = size.boundedTo(largest);
        least = least.boundedTo(largest);
        m_window->setScreen(screen);
        QRect place(QPoint(), size.expandedTo(least));
        place.moveCenter(area.center());
        m_window->setGeometry(place);
    } else {
        m_window->resize(size.expandedTo(least));
    }
    m_window->setMinimumSize(least);
}

void AppSettingsWindowController::showSettingsWindow() {
    if (!m_window)
        build();
    m_window->loadContent();
    m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_windowServices.activation.activateIgnoringOtherApps(*m_window);
}

} // namespace zelmo
