#include "desktop/WallOnScreen.h"

#include <array>
#include <cmath>
#include <xcb/xtest.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QString panelTitle = QStringLiteral("Menu Panel");
constexpr xcb_keysym_t upKey = 0xff52;

// A desktop with a bar at the top, in which a tray shows the program's item.
class TrayDesktop {
public:
    explicit TrayDesktop(const QString& trayProgram, const QString& windowManager = QStringLiteral("openbox"),
                         int scale = 1)
        : session(DesktopSession::start({.windowManager = windowManager})), m_trayProgram(trayProgram) {
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
                                                         "--height 28 --SetPartialStrut true --SetDockType true")
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
            const auto place = display().geometry(display().focusedWindow());
            return place == QRect(QPoint(0, 0), display().size()) && display().focusedWindow() != display().root();
        });
    }
    // Nor what it shrinks into, which has an item's colours too.
    bool waitForNoWall() const {
        return DesktopSession::waitFor([this] {
            const auto window = display().viewableWindow(QStringLiteral("Zelmo"));
            const bool isGone = !window || display().geometry(*window) != QRect(QPoint(0, 0), display().size());
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
    bool waitForItem() const {
        return DesktopSession::waitFor([this] { return item().has_value(); });
    }
    bool waitForNoItem() const {
        return DesktopSession::waitFor([this] { return !item().has_value(); });
    }
    std::optional<QRect> panel() const {
        const auto window = display().viewableWindow(panelTitle);
        return window ? display().geometry(*window) : std::nullopt;
    }
    // With the keyboard.
    bool waitForPanel() const {
        return DesktopSession::waitFor([this] {
            const auto window = display().viewableWindow(panelTitle);
            return window && display().focusedWindow() == *window;
        });
    }
    bool waitForNoPanel() const {
        return DesktopSession::waitFor([this] { return !panel(); });
    }
    bool openPanel() const {
        display().click(*item());
        return waitForPanel();
    }

    static constexpr int barHeight = 60;

    std::unique_ptr<DesktopSession> session;
    QProcess* tray = nullptr;
    QProcess* zelmo = nullptr;

private:
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
};

} // namespace

// The menu-bar item in real trays, one for each way in which they show items.
class MenuBarOnDesktopTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aClickOpensThePanelAndTheNextClosesIt_data() { trays(); }
    void aClickOpensThePanelAndTheNextClosesIt() {
        QFETCH(QString, tray);
        TrayDesktop desktop(tray);
        QVERIFY(desktop.startBoth());
        for (int round = 0; round < 3; ++round) {
            QVERIFY(desktop.openPanel());
            const auto panel = desktop.panel();
            QVERIFY(panel && desktop.item());
            QCOMPARE(panel->width(), 294);
            // Below the item's bar and inside the screen.
            QVERIFY(panel->top() >= desktop.item()->y());
            QVERIFY(panel->top() < TrayDesktop::barHeight);
            QVERIFY(QRect(QPoint(), desktop.display().size()).contains(*panel));
            desktop.display().click(*desktop.item());
            QVERIFY(desktop.waitForNoPanel());
        }
    }

    void aPressOutsideClosesThePanel_data() { trays(); }
    void aPressOutsideClosesThePanel() {
        QFETCH(QString, tray);
        TrayDesktop desktop(tray);
        QVERIFY(desktop.startBoth());
        QVERIFY(desktop.openPanel());
        // Where there is no window.
        desktop.display().click({200, 600});
        QVERIFY(desktop.waitForNoPanel());
        QVERIFY(desktop.openPanel());
        desktop.session->startProgram(QStringLiteral("xcalc"));
        // Another window that takes the focus.
        QVERIFY(DesktopSession::waitFor([&] { return desktop.display().activeClass() == QLatin1StringView("XCalc"); }));
        QVERIFY(desktop.waitForNoPanel());
    }

    void keysActInThePanel_data() { trays(); }
    void keysActInThePanel() {
        QFETCH(QString, tray);
        TrayDesktop desktop(tray);
        QVERIFY(desktop.startBoth());
        const XDisplay& display = desktop.display();
        QVERIFY(desktop.openPanel());
        QVERIFY(display.typeKey(escapeKey));
        QVERIFY(desktop.waitForNoPanel());

        // The first button shows the wall, which takes the place of the panel.
        QVERIFY(desktop.openPanel());
        QVERIFY(display.typeKey(returnKey));
        QVERIFY(desktop.waitForWall());
        QVERIFY(desktop.waitForNoPanel());
        QVERIFY(display.typeKey(escapeKey));
        QVERIFY(desktop.waitForNoWall());
        QVERIFY(desktop.waitForItem());

        // So does the shortcut from any control.
        QVERIFY(desktop.openPanel());
        QVERIFY(display.typeKey(tabKey));
        QVERIFY(display.typeKey(downKey));
        display.holdKey(superKey);
        display.holdKey(altKey);
        display.typeKey(spaceKey);
        display.releaseKey(altKey);
        display.releaseKey(superKey);
        QVERIFY(desktop.waitForWall());
        QVERIFY(display.typeKey(escapeKey));
        QVERIFY(desktop.waitForNoWall());
        QVERIFY(desktop.waitForItem());

        // The last button ends the program at once.
        QVERIFY(desktop.openPanel());
        QVERIFY(display.typeKey(upKey));
        QVERIFY(display.typeKey(returnKey));
        QVERIFY(desktop.zelmo->waitForFinished(15'000));
        QCOMPARE(desktop.zelmo->exitStatus(), QProcess::NormalExit);
        QCOMPARE(desktop.zelmo->exitCode(), 0);
        QVERIFY(desktop.waitForNoItem());
    }

    void theItemComesWithTheTrayAndComesBackWithTheNext_data() { trays(); }
    void theItemComesWithTheTrayAndComesBackWithTheNext() {
        QFETCH(QString, tray);
        TrayDesktop desktop(tray);
        QVERIFY(desktop.startZelmo());
        QVERIFY(!desktop.item());
        for (int round = 0; round < 2; ++round) {
            desktop.startTray();
            QVERIFY(desktop.waitForItem());
            QVERIFY(desktop.openPanel());
            QVERIFY(desktop.display().typeKey(escapeKey));
            QVERIFY(desktop.waitForNoPanel());
            desktop.endTray();
            QVERIFY(desktop.waitForNoItem());
        }
    }

    void theItemMovesBetweenTraysOfBothKinds() {
        TrayDesktop desktop(QStringLiteral("xfce4-panel"));
        desktop.startTray();
        QVERIFY(desktop.startZelmo());
        QVERIFY(desktop.waitForItem());
        desktop.endTray();
        QVERIFY(desktop.waitForNoItem());
        desktop.session->startProgram(QStringLiteral("trayer"),
                                      QStringLiteral("--edge top --align right --height 28").split(u' '));
        QVERIFY(desktop.waitForItem());
        QVERIFY(desktop.openPanel());
    }

    void theProgramInFrontBeforeThePanelGetsTheFocusBack_data() { trays(); }
    void theProgramInFrontBeforeThePanelGetsTheFocusBack() {
        QFETCH(QString, tray);
        TrayDesktop desktop(tray);
        QVERIFY(desktop.startBoth());
        desktop.session->startProgram(QStringLiteral("xcalc"));
        const auto isInFront = [&] { return desktop.display().activeClass() == QLatin1StringView("XCalc"); };
        QVERIFY(DesktopSession::waitFor(isInFront));
        QVERIFY(desktop.openPanel());
        QVERIFY(desktop.display().typeKey(returnKey));
        QVERIFY(desktop.waitForWall());
        QVERIFY(desktop.display().typeKey(escapeKey));
        QVERIFY(desktop.waitForNoWall());
        QVERIFY(DesktopSession::waitFor(isInFront));
    }

    // It keeps the focus from windows that come by themselves.
    void aStrictWindowManagerGivesThePanelTheFocus_data() { trays(); }
    void aStrictWindowManagerGivesThePanelTheFocus() {
        QFETCH(QString, tray);
        TrayDesktop desktop(tray, QStringLiteral("metacity"));
        QVERIFY(desktop.startBoth());
        desktop.session->startProgram(QStringLiteral("xcalc"));
        QVERIFY(DesktopSession::waitFor([&] { return desktop.display().activeClass() == QLatin1StringView("XCalc"); }));
        // The user has just used the other program.
        const auto calculator = desktop.display().geometry(*desktop.display().activeWindow());
        desktop.display().click(calculator->center());
        QVERIFY(desktop.openPanel());
        desktop.display().click(*desktop.item());
        QVERIFY(desktop.waitForNoPanel());
    }

    void atTwoPixelsToThePointThePanelIsAtTheItem_data() { trays(); }
    void atTwoPixelsToThePointThePanelIsAtTheItem() {
        QFETCH(QString, tray);
        TrayDesktop desktop(tray, QStringLiteral("openbox"), 2);
        QVERIFY(desktop.startBoth());
        QVERIFY(desktop.openPanel());
        const QRect panel = *desktop.panel();
        QCOMPARE(panel.width(), 2 * 294);
        QVERIFY(panel.top() >= desktop.item()->y());
        QVERIFY(panel.top() < TrayDesktop::barHeight);
        QVERIFY(QRect(QPoint(), desktop.display().size()).contains(panel));
        // Close to the item, as far as the edge of the screen allows.
        const int nearest = std::clamp(desktop.item()->x(), 294, desktop.display().size().width() - 294);
        QVERIFY(std::abs(panel.center().x() - nearest) < 40);
        desktop.display().click(panel.center() + QPoint(panel.width() / 2 + 40, 400));
        QVERIFY(desktop.waitForNoPanel());
    }

    void withACompositorThePanelHasAShadow() {
        TrayDesktop desktop(QStringLiteral("trayer"));
        desktop.session->startProgram(QStringLiteral("xcompmgr"));
        QVERIFY(desktop.startBoth());
        QVERIFY(desktop.openPanel());
        QVERIFY(desktop.panel()->width() > 294 + 2 * 18);
    }

    void aHostDrawsTheMenu() {
        TrayDesktop desktop(QStringLiteral("xfce4-panel"));
        QVERIFY(desktop.startBoth());
        // Its last line quits.
        clickWithRightButton(desktop.display(), *desktop.item());
        QVERIFY(DesktopSession::waitFor([&] { return desktop.display().keyboardIsGrabbed(); }));
        QVERIFY(DesktopSession::waitFor([&] {
            desktop.display().typeKey(upKey);
            desktop.display().typeKey(returnKey);
            return desktop.zelmo->waitForFinished(50);
        }));
        QCOMPARE(desktop.zelmo->exitCode(), 0);
    }

    void withoutATrayNothingIsSaid() {
        TrayDesktop desktop{QStringLiteral("none")};
        QVERIFY(desktop.startZelmo());
        QVERIFY(!desktop.item());
        desktop.zelmo->terminate();
        QVERIFY(desktop.zelmo->waitForFinished());
        QCOMPARE(desktop.zelmo->exitCode(), 0);
    }

private:
    static void trays() {
        QTest::addColumn<QString>("tray");
        QTest::newRow("as a window") << QStringLiteral("trayer");
        QTest::newRow("on the bus") << QStringLiteral("xfce4-panel");
    }
    static void clickWithRightButton(const XDisplay& display, QPoint place) {
        display.movePointer(place);
        for (const std::uint8_t event : std::array<std::uint8_t, 2>{XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE})
            xcb_test_fake_input(display.connection(), event, 3, XCB_CURRENT_TIME, display.root(), 0, 0, 0);
        display.synchronize();
    }
};

QTEST_GUILESS_MAIN(MenuBarOnDesktopTest)
#include "MenuBarOnDesktopTest.moc"
