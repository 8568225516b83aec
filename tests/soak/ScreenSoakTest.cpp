#include "soak/SoakDesktop.h"
#include "soak/SoakLength.h"
#include "support/ScreenShape.h"

using namespace zelmo::test;

namespace {

enum class Wall { hidden, shown };

const QByteArray blueBackground =
    stringPreference("launcherBackgroundStyle", "customColor") + realPreference("launcherBackgroundBlue", 0.8);

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
    void theWallTakesTheNewSize_data() { walls(); }
    void theWallTakesTheNewSize() {
        QFETCH(Wall, wall);
        SoakDesktop desktop({.screen = {1400, 1400}});
        start(desktop);
        const auto sizes = {QSize(1024, 768), QSize(768, 1024), QSize(1400, 900), QSize(640, 480), QSize(1400, 1400)};
        for (int round = 0; round < soakCount(1, 20); ++round) {
            for (const QSize size : sizes) {
                QVERIFY(bring(desktop, wall));
                resizeScreen(desktop.session->display(), size);
                QCOMPARE(desktop.session->display().size(), size);
                QVERIFY(coversAndGoes(desktop, wall, {QPoint(), size}));
            }
        }
    }

    void theWallStaysOnTheScreenThatIsLeft_data() { walls(); }
    void theWallStaysOnTheScreenThatIsLeft() {
        QFETCH(Wall, wall);
        SoakDesktop desktop({.screen = {1600, 800}, .monitors = Monitors::leftPrimary});
        const XDisplay& display = desktop.session->display();
        const QRect left(0, 0, 800, 800);
        const QRect right(800, 0, 800, 800);
        display.movePointer({1200, 700});
        start(desktop, right);
        for (int round = 0; round < soakCount(2, 40); ++round) {
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
        }
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
