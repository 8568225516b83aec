#pragma once

#include "support/DesktopSession.h"

#include <QColor>

#include <cmath>

namespace zelmo::test {

// A desktop with a bar at the top, in which a tray shows the program's item.
class TrayDesktop {
public:
    // On two monitors, the bar is on the right one.
    explicit TrayDesktop(const QString& trayProgram, const DesktopOptions& options = {}, int scale = 1)
        : session(DesktopSession::start(options)), m_trayProgram(trayProgram), m_monitors(options.monitors) {
        if (!session)
            qFatal("no desktop starts");
        session->writeFile(QStringLiteral(".local/share/applications/calculator.desktop"),
                           "[Desktop Entry]\nType=Application\nName=Calculator\nExec=xcalc\nStartupWMClass=XCalc\n");
        session->writeFile(QStringLiteral(".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"), barOfXfce());
        session->environment().insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale));
    }

    void startTray() {
        // Without the system's own data, some can't read a picture.
        const QString dataFolders = session->environment().value(QStringLiteral("XDG_DATA_DIRS"));
        session->environment().insert(QStringLiteral("XDG_DATA_DIRS"), QStringLiteral("/usr/share"));
        if (m_trayProgram == QLatin1StringView("trayer"))
            tray = &session->startProgram(m_trayProgram,
                                          QStringLiteral("--edge top --align right --widthtype percent --width 100 "
                                                         "--height 28 --SetPartialStrut true --SetDockType true "
                                                         "--monitor %1")
                                              .arg(m_monitors == Monitors::one ? 0 : 1)
                                              .split(u' '));
        else
            tray = &session->startProgram(m_trayProgram, {QStringLiteral("--disable-wm-check")});
        session->environment().insert(QStringLiteral("XDG_DATA_DIRS"), dataFolders);
    }
    void endTray() const {
        tray->kill();
        tray->waitForFinished();
    }
    // With the wall, which opens by itself, put away.
    bool startZelmo() {
        zelmo = &session->startProgram(QStringLiteral(ZELMO_PROGRAM));
        return waitForWall() && display().typeKey(escapeKey) && waitForNoWall();
    }
    bool startBoth() {
        startTray();
        return startZelmo() && waitForItem();
    }

    XDisplay& display() const { return session->display(); }
    bool waitForWall() const {
        return DesktopSession::waitFor([this] {
            const xcb_window_t focused = display().focusedWindow();
            return focused != display().root() && display().geometry(focused) == wallPlace();
        });
    }
    // Nor what it shrinks into, which has an item's colours too.
    bool waitForNoWall() const {
        return DesktopSession::waitFor([this] {
            const auto window = display().viewableWindow(QStringLiteral("Zelmo"));
            const bool isGone = !window || display().geometry(*window) != wallPlace();
            return isGone && !display().viewableWindow(QStringLiteral("Collapse"));
        });
    }
    // The middle of the item: of its middle cell, in a colour that no bar has.
    std::optional<QPoint> item() const {
        const QImage screen = display().screenshot();
        QPoint sum;
        int count = 0;
        for (int y = 0; y < barHeight; ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                const QColor color = screen.pixelColor(x, y);
                if (std::abs(color.red() - 242) < 8 && std::abs(color.green() - 191) < 8 &&
                    std::abs(color.blue() - 94) < 8) {
                    sum += QPoint(x, y);
                    ++count;
                }
            }
        }
        return count > 3 ? std::optional(sum / count) : std::nullopt;
    }
    // Where it stays: a bar may still look for its own place.
    bool waitForItem() const {
        return DesktopSession::waitFor([this] { return item().has_value(); }) &&
               DesktopSession::waitUntilSteady([this] { return item(); }) && item();
    }
    bool waitForNoItem() const {
        return DesktopSession::waitFor([this] { return !item().has_value(); });
    }
    std::optional<QRect> panel() const {
        const auto window = display().viewableWindow(QStringLiteral("Menu Panel"));
        return window ? display().geometry(*window) : std::nullopt;
    }
    // With the keyboard.
    bool waitForPanel() const {
        return DesktopSession::waitFor([this] {
            const auto window = display().viewableWindow(QStringLiteral("Menu Panel"));
            return window && display().focusedWindow() == *window;
        });
    }
    bool waitForNoPanel() const {
        return DesktopSession::waitFor([this] { return !panel(); });
    }
    bool openPanel() const {
        const std::optional<QPoint> place = item();
        if (!place)
            return false;
        display().click(*place);
        return waitForPanel();
    }

    static constexpr int leastBarHeight = 20;
    static constexpr int barHeight = 60; // no bar is higher

    std::unique_ptr<DesktopSession> session;
    QProcess* tray = nullptr;
    QProcess* zelmo = nullptr;

private:
    // The pointer, which nobody has moved yet, is in the middle and so on the right one of two monitors.
    QRect wallPlace() const {
        const QSize screen = display().size();
        const int half = screen.width() / 2;
        return m_monitors == Monitors::one ? QRect(QPoint(), screen) : QRect(half, 0, half, screen.height());
    }
    static QByteArray barOfXfce() {
        return R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="30"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";
    }

    QString m_trayProgram;
    Monitors m_monitors;
};

} // namespace zelmo::test
