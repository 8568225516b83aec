#pragma once

#include "menubar/StatusItem.h"

#include <QImage>
#include <QQuickView>

class QScreen;

namespace zelmo {

class LauncherStore;
class MenuBarActions;
class PanelDesktop;

// What the window needs of the world around it. All of it outlives the window.
struct PanelServices {
    PanelDesktop& desktop;
    // The part of the desktop in the root's pixels; null where it can't be seen. May be empty.
    std::function<QImage(const QRect& pixels, const QScreen& screen)> captureDesktop{};
    // Whether the user asked the desktop for less movement. May be empty.
    std::function<bool()> reducesMotion{};
};

// The window that the menu-bar item opens beside itself. It has the keyboard while it is open, and closes when it
// loses it, at a press outside and at Escape. Owned by the menu-bar extra; main thread.
class MenuBarPanelWindow : public QQuickView {
    Q_OBJECT

public:
    MenuBarPanelWindow(LauncherStore& store, MenuBarActions& actions, PanelServices services);
    ~MenuBarPanelWindow() override;

    void openAt(const StatusItemClick& click);
    void dismiss();

    // The panel without the room for its shadow, in points of the screens.
    QRect panelGeometry() const;

Q_SIGNALS:
    // By a press outside.
    void closedByPress();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    enum class FocusDirection { forward, backward };

    void place(const StatusItemClick& click);
    void closeByPress();
    void moveFocus(FocusDirection direction);
    void showFocus();

    MenuBarActions& m_actions;
    PanelServices m_services;
    int m_margin = 0; // points
};

} // namespace zelmo
