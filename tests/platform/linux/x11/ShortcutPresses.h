#pragma once

#include "OtherProgram.h"
#include "RunningHotKeyProgram.h"

#include <QThread>

namespace zelmo::test {

inline constexpr xcb_keycode_t spaceCode = 65;
inline const QString pressed = QStringLiteral("pressed");
inline const QString assigned = QStringLiteral("Option + Space is assigned to Zelmo.");

inline bool isRefusal(const QString& status) {
    return status.startsWith(QStringLiteral("Could not assign"));
}

// Without a window manager.
inline std::unique_ptr<DesktopSession> bareSession() {
    return DesktopSession::start({.windowManager = {}});
}

// The shortcut as a person presses it: never twice within one tick of the server's clock.
inline void pressShortcut(const DesktopSession& session, xcb_keysym_t modifier = altKey) {
    const XDisplay& display = session.display();
    display.holdKey(modifier);
    display.holdKey(spaceKey);
    display.releaseKey(spaceKey);
    display.releaseKey(modifier);
    QThread::msleep(3);
}

// Of a layout that has two.
inline bool switchToSecondGroup(DesktopSession& session) {
    constexpr xcb_keysym_t nextGroupKey = 0xfe08;
    QProcess& change =
        session.startProgram(QStringLiteral("setxkbmap"),
                             {QStringLiteral("us,ru"), QStringLiteral("-option"), QStringLiteral("grp:caps_toggle")});
    const OtherProgram other(session.displayName());
    return change.waitForFinished() && session.display().typeKey(nextGroupKey) &&
           DesktopSession::waitFor([&] { return other.keyboardGroup() == 1; });
}

} // namespace zelmo::test
