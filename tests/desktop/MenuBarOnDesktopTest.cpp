#include "desktop/TrayDesktop.h"

#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr xcb_keysym_t upKey = 0xff52;

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
        TrayDesktop desktop(tray, {.windowManager = QStringLiteral("metacity")});
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
        TrayDesktop desktop(tray, {}, 2);
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

    void onTwoMonitorsThePanelIsOnTheItemsOwn_data() {
        QTest::addColumn<QString>("tray");
        QTest::addColumn<Monitors>("monitors");
        QTest::newRow("as a window") << QStringLiteral("trayer") << Monitors::leftPrimary;
        // This one knows no monitor that has no output of the server, which has a single one: the primary has it.
        QTest::newRow("on the bus") << QStringLiteral("xfce4-panel") << Monitors::rightPrimary;
    }
    void onTwoMonitorsThePanelIsOnTheItemsOwn() {
        QFETCH(QString, tray);
        QFETCH(Monitors, monitors);
        TrayDesktop desktop(tray, {.screen = {1600, 700}, .monitors = monitors});
        QVERIFY(desktop.startBoth());
        const QRect right(800, 0, 800, 700);
        // A bar that came up before it knew the monitors moves there.
        QVERIFY(DesktopSession::waitFor([&] {
            const auto item = desktop.item();
            return item && right.contains(*item);
        }));
        // Below the bar, which the desktop keeps free of windows.
        const QRect workArea = right.adjusted(0, TrayDesktop::leastBarHeight, 0, 0);
        for (int round = 0; round < 2; ++round) {
            QVERIFY(desktop.openPanel());
            const QRect panel = *desktop.panel();
            QVERIFY(workArea.contains(panel));
            QVERIFY(panel.top() < TrayDesktop::barHeight);
            const int nearest = std::clamp(desktop.item()->x(), right.left() + 147, right.right() - 147);
            QVERIFY(std::abs(panel.center().x() - nearest) < 20);
            // Wherever the pointer has gone meanwhile.
            desktop.display().click({200, 400});
            QVERIFY(desktop.waitForNoPanel());
        }
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
        desktop.display().click(*desktop.item(), XCB_BUTTON_INDEX_3);
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
};

QTEST_GUILESS_MAIN(MenuBarOnDesktopTest)
#include "MenuBarOnDesktopTest.moc"
