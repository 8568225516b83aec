#pragma once

#include "menubar/MenuBarActions.h"
#include "menubar/MenuBarPanelWindow.h"

#include <QElapsedTimer>

#include <chrono>
#include <memory>
#include <optional>

namespace zelmo {

// What the extra needs besides the panel's services. All of it outlives the extra.
struct MenuBarExtraServices {
    StatusItem& statusItem;
    LauncherStore& store;
    Preferences& preferences;
    SharedApplication& application;
    PanelServices panel;
};

// The program's item in the menu bar and the panel that it opens: keeps the item's glyph and menu as the store and
// the preferences are, and opens and closes the panel. Owned by the application; main thread.
class MenuBarExtra : public QObject {
    Q_OBJECT

public:
    explicit MenuBarExtra(MenuBarExtraServices services);
    ~MenuBarExtra() override;

    // Null until the item is clicked for the first time.
    MenuBarPanelWindow* panel() const { return m_panel.get(); }

private:
    // A click that takes longer than this from the press on counts as another one.
    static constexpr std::chrono::seconds longestClick{1};
    static constexpr int clickReach = 12; // points that the pointer may move meanwhile

    void handleClick(const StatusItemClick& click);
    bool closedByThisClick();
    void updateLabel();
    void updateMenu();

    MenuBarExtraServices m_services;
    MenuBarActions m_actions;
    std::unique_ptr<MenuBarPanelWindow> m_panel;
    std::optional<QPoint> m_closingPress; // where the pointer was when a press closed the panel
    QElapsedTimer m_sinceClosing;
};

} // namespace zelmo
