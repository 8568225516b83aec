#include "desktop/WallOnScreen.h"
#include "support/ProcessMemory.h"

using namespace zelmo::test;

namespace {

// The wall's background where nothing of the wall is in front of it, at the left and at the right edge.
struct Sides {
    QColor left;
    QColor right;
};

Sides sidesOf(const DesktopSession& session) {
    const QImage screen = session.display().screenshot();
    const int y = screen.height() / 2;
    return {screen.pixelColor(12, y), screen.pixelColor(screen.width() - 30, y)};
}

// How often the red changes along the lower edge, where nothing of the wall is in front of its background.
int stepsBetween(const DesktopSession& session, int left, int right) {
    const QImage screen = session.display().screenshot();
    const int y = screen.height() - 5;
    int steps = 0;
    for (int x = left; x < right; x += 10)
        steps += screen.pixelColor(x, y).red() != screen.pixelColor(x + 10, y).red();
    return steps;
}

bool isReddish(QColor color) {
    return color.red() > color.blue() + 40 && color.red() > color.green() + 40;
}
bool isBluish(QColor color) {
    return color.blue() > color.red() + 40 && color.blue() > color.green() + 10;
}

// A window of one colour, without a frame of its own.
QProcess& paint(DesktopSession& session, const char* color, const QRect& area) {
    return session.startProgram(
        QStringLiteral("xlogo"),
        {QStringLiteral("-bg"), QString::fromLatin1(color), QStringLiteral("-fg"), QString::fromLatin1(color),
         QStringLiteral("-geometry"),
         QStringLiteral("%1x%2+%3+%4").arg(area.width()).arg(area.height()).arg(area.x()).arg(area.y())});
}

} // namespace

// The wall's window among the desktop's: where it comes up, what shows through it, how it goes.
class OverlayOnDesktopTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDesktopShowsThroughBlurred_data() {
        QTest::addColumn<Compositor>("compositor");
        QTest::addColumn<QByteArray>("scale");
        QTest::newRow("no compositor") << Compositor::none << QByteArray("1");
        QTest::newRow("no compositor, two pixels to the point") << Compositor::none << QByteArray("2");
        if (DesktopSession::hasCompositor())
            QTest::newRow("a compositor") << Compositor::picom << QByteArray("1");
    }
    void theDesktopShowsThroughBlurred() {
        QFETCH(Compositor, compositor);
        QFETCH(QByteArray, scale);
        const auto session = DesktopSession::start({.screen = {1600, 1000}, .compositor = compositor});
        QVERIFY(session);
        session->environment().insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(scale));
        QProcess& red = paint(*session, "red", {0, 0, 700, 1000});
        QVERIFY(waitForPixel(*session, {300, 500}, [](QColor color) { return color == QColor(Qt::red); }));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilShown());
        // Softly from one to the other.
        QVERIFY(DesktopSession::waitFor([&] { return stepsBetween(*session, 560, 840) > 4; }));
        QVERIFY(wall.waitUntilPainted());
        const Sides first = sidesOf(*session);
        QVERIFY(isReddish(first.left));
        QVERIFY(!isReddish(first.right));

        QVERIFY(wall.hide());
        red.terminate();
        QVERIFY(waitForPixel(*session, {300, 500}, [](QColor color) { return !isReddish(color); }));
        paint(*session, "blue", {900, 0, 700, 1000});
        QVERIFY(waitForPixel(*session, {1300, 500}, [](QColor color) { return color == QColor(Qt::blue); }));
        wall.pressShortcut(altKey);
        QVERIFY(wall.waitUntilPainted());
        const Sides second = sidesOf(*session);
        QVERIFY(!isReddish(second.left));
        QVERIFY(isBluish(second.right));
    }

    // What the wall has behind it is the same each time, so nothing of itself has come into it.
    void theWallNeverShowsThroughItself() {
        const auto session = DesktopSession::start({.screen = {1600, 1000}});
        QVERIFY(session);
        paint(*session, "red", {0, 0, 700, 1000});
        QVERIFY(waitForPixel(*session, {300, 500}, [](QColor color) { return color == QColor(Qt::red); }));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilPainted());
        const QImage first = withoutCursor(session->display().screenshot());
        for (int i = 0; i < 3; ++i) {
            QVERIFY(wall.hide());
            QVERIFY(waitForPixel(*session, {300, 500}, [](QColor color) { return color == QColor(Qt::red); }));
            wall.pressShortcut(altKey);
            QVERIFY(wall.waitUntilPainted());
            QCOMPARE(withoutCursor(session->display().screenshot()), first);
        }
    }

    // Window managers read it from different properties.
    void itIsOnEveryWorkspace_data() {
        QTest::addColumn<QString>("windowManager");
        for (const char* name : {"openbox", "metacity", "xfwm4"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void itIsOnEveryWorkspace() {
        QFETCH(QString, windowManager);
        const auto session = DesktopSession::start({.windowManager = windowManager});
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilShown());
        const XDisplay& display = session->display();
        QCOMPARE(display.shownWorkspace(), std::optional<std::uint32_t>(0));
        display.showWorkspace(1);
        QVERIFY(DesktopSession::waitFor([&] { return display.shownWorkspace() == 1U; }));
        QVERIFY(wall.waitUntilShown());
        QVERIFY(wall.hide());
    }

    void itOpensOnTheScreenWithTheFocus() {
        const auto session = DesktopSession::start({.screen = {1600, 800}, .monitors = Monitors::leftPrimary});
        QVERIFY(session);
        const QRect left(0, 0, 800, 800);
        const QRect right(800, 0, 800, 800);
        session->display().movePointer({100, 700});
        paint(*session, "red", {1000, 200, 200, 200});
        QVERIFY(waitForActiveWindowIn(*session, right));
        const WallOnScreen wall(*session);
        QVERIFY(waitForWallAt(*session, right));
        QVERIFY(session->display().typeKey(escapeKey));
        QVERIFY(wall.waitUntilGone());
        paint(*session, "blue", {200, 200, 200, 200});
        QVERIFY(waitForActiveWindowIn(*session, left));
        wall.pressShortcut(altKey);
        QVERIFY(waitForWallAt(*session, left));
    }

    void aScreenThatIsUnpluggedLeavesTheWallOnTheOther() {
        const auto session = DesktopSession::start({.screen = {1600, 800}, .monitors = Monitors::leftPrimary});
        QVERIFY(session);
        session->display().movePointer({1000, 700});
        const WallOnScreen wall(*session);
        QVERIFY(waitForWallAt(*session, {800, 0, 800, 800}));
        removeMonitor(session->display(), Monitor::right);
        QVERIFY(waitForWallAt(*session, {0, 0, 800, 800}));
        QVERIFY(session->display().typeKey(escapeKey));
        QVERIFY(wall.waitUntilGone());
    }

    void itShrinksTowardsTheTopAndTheDesktopComesBack() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        paint(*session, "red", {0, 0, 1280, 800});
        QVERIFY(waitForPixel(*session, {300, 700}, [](QColor color) { return color == QColor(Qt::red); }));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilPainted());
        bool wasOnItsWay = false;
        // On a machine that is busy elsewhere, all of the way may lie between two looks at the screen.
        for (int attempt = 0; attempt < 10 && !wasOnItsWay; ++attempt) {
            if (attempt > 0) {
                QVERIFY(wall.waitUntilGone());
                wall.pressShortcut(altKey);
                QVERIFY(wall.waitUntilPainted());
            }
            QVERIFY(session->display().typeKey(escapeKey));
            QVERIFY(DesktopSession::waitFor([&] {
                const QImage screen = session->display().screenshot();
                const bool bottomIsFree = screen.pixelColor(20, 780) == QColor(Qt::red);
                const bool topIsFree = screen.pixelColor(640, 60) == QColor(Qt::red);
                wasOnItsWay = wasOnItsWay || (bottomIsFree && !topIsFree);
                return bottomIsFree && topIsFree;
            }));
        }
        QVERIFY(wasOnItsWay);
    }

    // The first ones may set up what the later ones use again.
    void showsLeaveNoMemoryBehind() {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("The sanitizer keeps memory that is freed, to see who still uses it.");
#endif
        const auto session = DesktopSession::start({.screen = {1920, 1080}});
        QVERIFY(session);
        for (int i = 0; i < 40; ++i)
            session->installEntry(QStringLiteral("App %1").arg(i));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilPainted());
        const auto showAgain = [&](int count) {
            for (int i = 0; i < count; ++i) {
                if (!wall.hide())
                    return false;
                wall.pressShortcut(altKey);
                if (!wall.waitUntilShown())
                    return false;
            }
            return wall.waitUntilPainted();
        };
        QVERIFY(showAgain(15));
        const double before = ProcessMemory::of(wall.process.processId()).own;
        QVERIFY(before > 0);
        QVERIFY(showAgain(45));
        const double growth = ProcessMemory::of(wall.process.processId()).own - before;
        QVERIFY2(growth < 2, qPrintable(QString::number(growth)));
    }

private:
    template <typename Predicate>
    static bool waitForPixel(const DesktopSession& session, QPoint place, Predicate isWanted) {
        return DesktopSession::waitFor([&] { return isWanted(session.display().screenshot().pixelColor(place)); });
    }
    static bool waitForWallAt(const DesktopSession& session, const QRect& area) {
        return DesktopSession::waitFor([&] {
            const auto window = session.display().viewableWindow(QStringLiteral("Zelmo"));
            return window && session.display().geometry(*window) == area &&
                   session.display().focusedWindow() == *window;
        });
    }
    static bool waitForActiveWindowIn(const DesktopSession& session, const QRect& area) {
        return DesktopSession::waitFor([&] {
            const auto window = session.display().activeWindow();
            const auto place = window ? session.display().geometry(*window) : std::nullopt;
            return place && area.contains(*place);
        });
    }
    // It blinks in the search field.
    static QImage withoutCursor(QImage screen) {
        for (int y = 110; y < 190; ++y) {
            for (int x = 90; x < 260; ++x)
                screen.setPixel(x, y, 0);
        }
        return screen;
    }
};

QTEST_MAIN(OverlayOnDesktopTest)
#include "OverlayOnDesktopTest.moc"
