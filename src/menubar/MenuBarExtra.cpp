#include "menubar/MenuBarExtra.h"

#include "catalog/LauncherStore.h"
#include "menubar/ZelmoMenuLabel.h"

#include <QCursor>

namespace zelmo {

MenuBarExtra::MenuBarExtra(MenuBarExtraServices services)
    : m_services(std::move(services)), m_actions(m_services.store, m_services.preferences, m_services.application) {
    connect(&m_services.store, &LauncherStore::overlayIsVisibleChanged, this, [this] {
        updateLabel();
        updateMenu();
    });
    connect(&m_actions, &MenuBarActions::openAtLoginLaterChanged, this, &MenuBarExtra::updateMenu);
    m_services.statusItem.setTitle(QStringLiteral("Zelmo"));
    updateLabel();
    updateMenu();
    m_services.statusItem.setClickHandler([this](const StatusItemClick& click) { handleClick(click); });
    m_services.statusItem.setVisibility(StatusItemVisibility::visible);
}

MenuBarExtra::~MenuBarExtra() {
    m_services.statusItem.setVisibility(StatusItemVisibility::hidden);
    m_services.statusItem.setClickHandler({});
    m_services.statusItem.setMenu({});
}

void MenuBarExtra::handleClick(const StatusItemClick& click) {
    if (m_panel && m_panel->isVisible()) {
        m_panel->dismiss();
        return;
    }
    if (closedByThisClick())
        return;
    if (!m_panel) {
        m_panel = std::make_unique<MenuBarPanelWindow>(m_services.store, m_actions, m_services.panel);
        connect(m_panel.get(), &MenuBarPanelWindow::closedByPress, this, [this] {
            m_closingPress = QCursor::pos();
            m_sinceClosing.start();
        });
    }
    m_panel->openAt(click);
}

// A host tells of a click when the button has gone down or up; the press itself has then closed the panel already.
bool MenuBarExtra::closedByThisClick() {
    const auto press = std::exchange(m_closingPress, std::nullopt);
    return press && (*press - QCursor::pos()).manhattanLength() <= clickReach &&
           !m_sinceClosing.hasExpired(std::chrono::milliseconds(longestClick).count());
}

void MenuBarExtra::updateLabel() {
    const ZelmoMenuLabel label(m_services.store.overlayIsVisible() ? GlyphState::active : GlyphState::inactive);
    m_services.statusItem.setPainter([label](QPainter& painter, const QRectF& place) { label.paint(painter, place); });
}

void MenuBarExtra::updateMenu() {
    m_services.statusItem.setMenu(m_actions.menu());
}

} // namespace zelmo
