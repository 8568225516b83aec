#pragma once

#include "menubar/MenuBarExtra.h"
#include "platform/linux/tray/TrayStatusItem.h"
#include "platform/linux/tray/X11PanelDesktop.h"
#include "platform/linux/x11/X11Connection.h"

namespace zelmo {

// What the menu-bar item needs of the program. All of it outlives the item.
struct MenuBarServices {
    LauncherStore& store;
    Preferences& preferences;
    SharedApplication& application;
    // The part of the desktop in the root's pixels; null where it can't be seen. May be empty.
    std::function<QImage(const QRect& pixels, const QScreen& screen)> captureDesktop{};
    // Whether the user asked the desktop for less movement. May be empty.
    std::function<bool()> reducesMotion{};
};

// The menu-bar item with the means that this desktop has for it, in the order in which they need each other. Made by
// `main` once the wall is up; main thread.
class MenuBar {
public:
    explicit MenuBar(MenuBarServices services);

private:
    std::unique_ptr<X11Connection> m_connection; // of its own, for it chooses the root's events; null without X
    TrayStatusItem m_item;
    X11PanelDesktop m_desktop;
    MenuBarExtra m_extra;
};

} // namespace zelmo
