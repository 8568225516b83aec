#include "soak/ResourceUse.h"
#include "soak/SoakDesktop.h"
#include "soak/SoakLength.h"
#include "support/ScreenShape.h"

using namespace zelmo::test;

namespace {

enum class Wall { hidden, shown };

const QByteArray blueBackground =
    stringPreference("launcherBackgroundStyle", "customColor") + realPreference("launcherBackgroundBlue", 0.8);

// The two halves of a screen that is divided.
constexpr QRect left(0, 0, 800, 800);
constexpr QRect right(800, 0, 800, 800);

bool isWall(QColor color) {
    return color.blue() > 190 && color.blue() < 215 && color.red() < 30 && color.green() < 40;
}

// By the pixels of its four corners too: a window may have its size and show an older picture.
bool waitForWallAt(const SoakDesktop& desktop, const QRect& area) {
    const XDisplay& display = desktop.session->display();
    return DesktopSession::waitFor([&] {
        const auto window = display.viewableWindow(QStringLiteral("Zelmo"));
        if (!window || display.geometry(*window) != area || display.focusedWindow() != *window)
            return false;
        const QImage screen = display.screenshot();
        const QRect inside = area.adjusted(3, 3, -3, -3);
        return isWall(screen.pixelColor(inside.topLeft())) && isWall(screen.pixelColor(inside.topRight())) &&
               isWall(screen.pixelColor(inside.bottomLeft())) && isWall(screen.pixelColor(inside.bottomRight()));
    });
}

// After a change, with the wall as it was before.
bool coversAndGoes(const SoakDesktop& desktop, Wall wall, const QRect& area) {
    if (wall == Wall::hidden)
        desktop.wall->pressShortcut(altKey);
    return waitForWallAt(desktop, area) && desktop.wall->hide() && desktop.isRunning();
}

bool bring(const SoakDesktop& desktop, Wall wall) {
    return wall == Wall::hidden || desktop.show();
}

} // namespace

// The screen changes its shape, is turned, goes and comes, and the wall covers all of it each time.
class ScreenSoakTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWallTakesTheNewSize_data() {
        QTest::addColumn<QString>("windowManager");
        QTest::addColumn<Wall>("wall");
        const QString openbox = QStringLiteral("openbox");
        QTest::newRow("hidden") << openbox << Wall::hidden;
        QTest::newRow("shown") << openbox << Wall::shown;
        // Nobody else makes it larger.
        QTest::newRow("shown, without a window manager") << QString() << Wall::shown;
    }
    void theWallTakesTheNewSize() {
        QFETCH(QString, windowManager);
        QFETCH(Wall, wall);
        SoakDesktop desktop({.screen = {1400, 1400}, .windowManager = windowManager});
        start(desktop);
        const auto sizes = {QSize(1024, 768), QSize(768, 1024), QSize(1400, 900), QSize(640, 480), QSize(1400, 1400)};
        FlatRounds rounds(desktop.process(), soakCount(1, 20));
        for (int round = 0; round < rounds.count(); ++round) {
            for (const QSize size : sizes) {
                QVERIFY(bring(desktop, wall));
                resizeScreen(desktop.session->display(), size);
                QCOMPARE(desktop.session->display().size(), size);
                QVERIFY(coversAndGoes(desktop, wall, {QPoint(), size}));
            }
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
    }

    void theWallStaysOnTheScreenThatIsLeft_data() { walls(); }
    void theWallStaysOnTheScreenThatIsLeft() {
        QFETCH(Wall, wall);
        SoakDesktop desktop({.screen = {1600, 800}, .monitors = Monitors::leftPrimary});
        const XDisplay& display = desktop.session->display();
        display.movePointer({1200, 700});
        start(desktop, right);
        FlatRounds rounds(desktop.process(), soakCount(2, 40));
        for (int round = 0; round < rounds.count(); ++round) {
            if (wall == Wall::shown) {
                desktop.wall->pressShortcut(altKey);
                QVERIFY(waitForWallAt(desktop, round == 0 ? right : left));
            }
            removeMonitor(display, Monitor::right);
            QVERIFY(coversAndGoes(desktop, wall, left));
            // The pointer, which chooses the screen where no window does, is on the one that stays.
            display.movePointer({400, 700});
            if (wall == Wall::shown) {
                desktop.wall->pressShortcut(altKey);
                QVERIFY(waitForWallAt(desktop, left));
            }
            addSecondMonitor(display, Monitor::right, right);
            QVERIFY(coversAndGoes(desktop, wall, left));
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
    }

    // Other window managers than this one ask for the monitors only when the size of the whole screen changes, and put
    // the wall on one that they know.
    void theWallOpensOnAScreenThatIsThereAgain_data() { walls(); }
    void theWallOpensOnAScreenThatIsThereAgain() {
        QFETCH(Wall, wall);
        SoakDesktop desktop(
            {.screen = {1600, 800}, .monitors = Monitors::leftPrimary, .windowManager = QStringLiteral("metacity")});
        const XDisplay& display = desktop.session->display();
        display.movePointer({1200, 700});
        start(desktop, right);
        FlatRounds rounds(desktop.process(), soakCount(2, 40));
        for (int round = 0; round < rounds.count(); ++round) {
            removeMonitor(display, Monitor::right);
            display.movePointer({400, 700});
            if (wall == Wall::shown) {
                desktop.wall->pressShortcut(altKey);
                QVERIFY(waitForWallAt(desktop, left));
            }
            addSecondMonitor(display, Monitor::right, right);
            display.movePointer({1200, 700});
            QVERIFY(coversAndGoes(desktop, wall, wall == Wall::shown ? left : right));
            desktop.wall->pressShortcut(altKey);
            QVERIFY(waitForWallAt(desktop, right));
            QVERIFY(desktop.wall->hide());
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
    // With the wall put away again.
    static void start(SoakDesktop& desktop, std::optional<QRect> area = std::nullopt) {
        desktop.session->installEntry(QStringLiteral("Notes"));
        desktop.writePreferences(blueBackground);
        desktop.startProgram();
        QVERIFY(waitForWallAt(desktop, area.value_or(QRect(QPoint(), desktop.session->display().size()))));
        QVERIFY(desktop.wall->hide());
    }
};

QTEST_GUILESS_MAIN(ScreenSoakTest)
#include "ScreenSoakTest.moc"
