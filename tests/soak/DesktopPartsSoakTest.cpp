#include "desktop/TrayDesktop.h"
#include "desktop/WallOnScreen.h"
#include "soak/ResourceUse.h"
#include "soak/SoakLength.h"

#include <QTest>

using namespace zelmo::test;

namespace {

// The program on a desktop with everything that may end before it: a window manager, a compositor, a tray and a bus.
class WholeDesktop {
public:
    explicit WholeDesktop(const QString& tray, const QString& windowManager = QStringLiteral("openbox"))
        : desktop(tray, {.windowManager = windowManager,
                         .compositor = DesktopSession::hasCompositor() ? Compositor::picom : Compositor::none}) {
        desktop.session->installEntry(QStringLiteral("Notes"));
        desktop.session->writeFile(QStringLiteral(".config/zelmo/preferences.plist"),
                                   "<plist version=\"1.0\"><dict><key>launcherBackgroundStyle</key>"
                                   "<string>customColor</string><key>launcherKeyboardShortcut</key>"
                                   "<string>controlSpace</string><key>launcherBackgroundBlue</key><real>0.8</real>"
                                   "</dict></plist>");
    }

    bool start() {
        if (!desktop.startBoth())
            return false;
        // Something that the wall has to cover, also after each further window manager has put it lower by the height
        // of a title.
        desktop.session->startProgram(QStringLiteral("xlogo"),
                                      QStringLiteral("-bg red -fg red -geometry 300x760+100+20").split(u' '));
        return waitForDesktop();
    }
    void pressShortcut() const {
        // Alt and Space are some window managers' own.
        display().holdKey(controlKey);
        display().typeKey(spaceKey);
        display().releaseKey(controlKey);
    }
    // Whole, in front of everything and with the keyboard.
    bool waitForWall() const { return desktop.waitForWall() && waitForPicture(); }
    bool waitForPicture() const {
        return DesktopSession::waitFor([this] {
            const QImage screen = display().screenshot();
            return isWall(screen.pixelColor(4, 4)) && isWall(screen.pixelColor(4, 795)) &&
                   isWall(screen.pixelColor(1275, 4)) && isWall(screen.pixelColor(1275, 795)) && !showsOther(screen);
        });
    }
    bool waitForDesktop() const {
        return desktop.waitForNoWall() &&
               DesktopSession::waitFor([this] { return showsOther(display().screenshot()); });
    }
    // What the wall is there for: it comes, takes keys and goes.
    bool works() const {
        pressShortcut();
        return waitForWall() && takesKeys() && goes();
    }
    // It finds one of two applications by its name and launches nothing.
    bool takesKeys() const {
        const auto hasTyped = [&](bool wanted) {
            return DesktopSession::waitFor([&] { return (cardsOf(display().screenshot()) == 1) == wanted; });
        };
        if (!hasTyped(false) || !display().typeText(QStringLiteral("no")) || !hasTyped(true))
            return false;
        return display().typeKey(backspaceKey) && display().typeKey(backspaceKey) && hasTyped(false);
    }
    bool goes() const { return display().typeKey(escapeKey) && waitForDesktop(); }
    bool isRunning() const { return desktop.zelmo->state() == QProcess::Running; }
    XDisplay& display() const { return desktop.display(); }

    TrayDesktop desktop;

private:
    static bool isWall(QColor color) {
        return color.blue() > 190 && color.blue() < 215 && color.red() < 30 && color.green() < 40;
    }
    static bool showsOther(const QImage& screen) { return screen.pixelColor(250, 650) == QColor(Qt::red); }
    // Of the two first places, by the bright letters of names.
    int cardsOf(const QImage& screen) const {
        int cards = 0;
        for (int column = 0; column < 2; ++column) {
            const QPoint center = cardCenter(*desktop.session, column);
            bool isThere = false;
            for (int y = center.y() - 80; y < center.y() + 100 && !isThere; ++y) {
                for (int x = center.x() - 77; x < center.x() + 77 && !isThere; ++x)
                    isThere = qGray(screen.pixel(x, y)) > 200;
            }
            cards += isThere ? 1 : 0;
        }
        return cards;
    }
};

enum class Wall { hidden, shown };

} // namespace

// What the desktop consists of ends without notice and comes again, and the program goes on as before.
class DesktopPartsSoakTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anotherWindowManagerTakesOver_data() {
        QTest::addColumn<QString>("windowManager");
        QTest::addColumn<Wall>("wall");
        for (const char* name : {"openbox", "xfwm4"}) {
            QTest::addRow("%s, hidden", name) << QString::fromLatin1(name) << Wall::hidden;
            QTest::addRow("%s, shown", name) << QString::fromLatin1(name) << Wall::shown;
        }
    }
    void anotherWindowManagerTakesOver() {
        QFETCH(QString, windowManager);
        QFETCH(Wall, wall);
        WholeDesktop whole(QStringLiteral("trayer"), windowManager);
        QVERIFY(whole.start());
        FlatRounds rounds(whole.desktop.zelmo->processId(), soakCount(1, 20));
        for (int round = 0; round < rounds.count(); ++round) {
            QVERIFY(bring(whole, wall));
            whole.desktop.session->kill(DesktopPart::windowManager);
            QVERIFY(whole.desktop.session->startAgain(DesktopPart::windowManager));
            QVERIFY(worksAfterwards(whole, wall));
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
    }

    void anotherCompositorTakesOver_data() { walls(); }
    void anotherCompositorTakesOver() {
        if (!DesktopSession::hasCompositor())
            QSKIP("there is no compositor here");
        QFETCH(Wall, wall);
        WholeDesktop whole(QStringLiteral("trayer"));
        QVERIFY(whole.start());
        FlatRounds rounds(whole.desktop.zelmo->processId(), soakCount(1, 20));
        for (int round = 0; round < rounds.count(); ++round) {
            QVERIFY(bring(whole, wall));
            whole.desktop.session->kill(DesktopPart::compositor);
            if (wall == Wall::hidden)
                QVERIFY(whole.works());
            else
                QVERIFY(whole.waitForWall());
            QVERIFY(whole.desktop.session->startAgain(DesktopPart::compositor));
            QVERIFY(worksAfterwards(whole, wall));
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
    }

    void anotherTrayTakesTheItem_data() {
        QTest::addColumn<QString>("tray");
        QTest::addColumn<Wall>("wall");
        for (const char* name : {"trayer", "xfce4-panel"}) {
            QTest::addRow("%s, hidden", name) << QString::fromLatin1(name) << Wall::hidden;
            QTest::addRow("%s, shown", name) << QString::fromLatin1(name) << Wall::shown;
        }
    }
    void anotherTrayTakesTheItem() {
        QFETCH(QString, tray);
        QFETCH(Wall, wall);
        WholeDesktop whole(tray);
        QVERIFY(whole.start());
        FlatRounds rounds(whole.desktop.zelmo->processId(), soakCount(1, 20));
        for (int round = 0; round < rounds.count(); ++round) {
            QVERIFY(bring(whole, wall));
            whole.desktop.endTray();
            if (wall == Wall::hidden)
                QVERIFY(whole.works() && whole.desktop.waitForNoItem());
            else
                QVERIFY(whole.waitForWall());
            whole.desktop.startTray();
            QVERIFY(worksAfterwards(whole, wall));
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
    }

    void theBusComesAgain_data() {
        QTest::addColumn<QString>("tray");
        QTest::addColumn<BusPlace>("place");
        QTest::addColumn<Wall>("wall");
        for (const auto wall : {Wall::hidden, Wall::shown}) {
            const char* state = wall == Wall::shown ? "shown" : "hidden";
            QTest::addRow("at the same address, %s", state) << QStringLiteral("trayer") << BusPlace::same << wall;
            if (isLong())
                QTest::addRow("at another address, %s", state) << QStringLiteral("trayer") << BusPlace::another << wall;
        }
    }
    void theBusComesAgain() {
        QFETCH(QString, tray);
        QFETCH(BusPlace, place);
        QFETCH(Wall, wall);
        WholeDesktop whole(tray);
        QVERIFY(whole.start());
        FlatRounds rounds(whole.desktop.zelmo->processId(), soakCount(1, 20));
        for (int round = 0; round < rounds.count(); ++round) {
            QVERIFY(bring(whole, wall));
            whole.desktop.session->kill(DesktopPart::bus);
            if (wall == Wall::hidden)
                QVERIFY(whole.works());
            else
                QVERIFY(whole.waitForWall());
            QVERIFY(whole.desktop.session->startAgain(DesktopPart::bus, place));
            QVERIFY(worksAfterwards(whole, wall));
            // The bus does not know the program any more; a second start finds it all the same.
            QProcess& second = whole.desktop.session->startProgram(QStringLiteral(ZELMO_PROGRAM));
            QVERIFY(whole.waitForWall());
            QVERIFY(DesktopSession::waitFor([&] { return second.state() == QProcess::NotRunning; }));
            QCOMPARE(second.exitCode(), 0);
            QVERIFY(whole.goes());
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
    }

private:
    static void walls() {
        QTest::addColumn<Wall>("wall");
        QTest::newRow("hidden") << Wall::hidden;
        QTest::newRow("shown") << Wall::shown;
    }
    static bool bring(const WholeDesktop& whole, Wall wall) {
        if (wall == Wall::hidden)
            return true;
        whole.pressShortcut();
        return whole.waitForWall();
    }
    // A wall that was shown is still there, and then everything is as it always is.
    static bool worksAfterwards(const WholeDesktop& whole, Wall wall) {
        if (wall == Wall::shown && !(whole.waitForWall() && whole.takesKeys() && whole.goes()))
            return false;
        return whole.works() && whole.desktop.waitForItem() && whole.works() && whole.isRunning();
    }
};

QTEST_GUILESS_MAIN(DesktopPartsSoakTest)
#include "DesktopPartsSoakTest.moc"
