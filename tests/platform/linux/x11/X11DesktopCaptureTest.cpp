#include "PaintedWindows.h"
#include "RunningScreenProgram.h"

#include "platform/linux/x11/X11DesktopCapture.h"

#include <QGuiApplication>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QString onlyScreen = QStringLiteral("screen");
const QString leftScreen = QStringLiteral("left");
const QString rightScreen = QStringLiteral("right");

// As the program says it.
QString placed(const char* screen, const QRect& area) {
    return QString::asprintf("%s:%dx%d%+d%+d", screen, area.width(), area.height(), area.x(), area.y());
}

} // namespace

class X11DesktopCaptureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePictureIsInTheScreensOwnPixels_data() {
        QTest::addColumn<QString>("scale");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("depth");
        QTest::newRow("one to one") << QStringLiteral("1") << QSize(1280, 800) << 24;
        QTest::newRow("two to a point") << QStringLiteral("2") << QSize(1280, 800) << 24;
        QTest::newRow("one and a half to a point") << QStringLiteral("1.5") << QSize(1280, 800) << 24;
        // Rounded to whole points, these come back as 1367 and 769 pixels.
        QTest::newRow("a size that is no whole number of points") << QStringLiteral("1.75") << QSize(1366, 767) << 24;
        QTest::newRow("few colours") << QStringLiteral("2") << QSize(640, 480) << 16;
    }
    void thePictureIsInTheScreensOwnPixels() {
        QFETCH(QString, scale);
        QFETCH(QSize, size);
        QFETCH(int, depth);
        const auto session = DesktopSession::start({.screen = size, .depth = depth, .windowManager = {}});
        QVERIFY(session);
        session->environment().insert(QStringLiteral("QT_SCALE_FACTOR"), scale);
        PaintedWindows windows(session->display());
        const RunningScreenProgram program(*session);
        QCOMPARE(program.capture(onlyScreen), windows.expected());
        // It is the screen of this moment.
        windows.add({5, 6, 70, 80}, Qt::white);
        QCOMPARE(program.capture(onlyScreen), windows.expected());
    }

    void withoutSharedMemoryThePictureIsTheSame() {
        const auto session = DesktopSession::start({.sharedMemory = SharedMemory::missing, .windowManager = {}});
        QVERIFY(session);
        const PaintedWindows windows(session->display());
        QCOMPARE(RunningScreenProgram(*session).capture(onlyScreen), windows.expected());
    }

    void whatACompositorShowsIsInThePicture() {
        if (!DesktopSession::hasCompositor())
            QSKIP("picom is not installed");
        const auto session = DesktopSession::start({.windowManager = {}, .compositor = Compositor::picom});
        QVERIFY(session);
        PaintedWindows windows(session->display());
        const RunningScreenProgram program(*session);
        QVERIFY(DesktopSession::waitFor([&] { return program.capture(onlyScreen) == windows.expected(); }));
        // Blended with what is below by the compositor alone, as a window says of itself.
        windows.addHalfTransparent({300, 200, 100, 100}, Qt::white);
        QVERIFY(DesktopSession::waitFor([&] {
            const QRgb blended = program.capture(onlyScreen).pixel(350, 250);
            return qAbs(qRed(blended) - 132) <= 2 && qAbs(qGreen(blended) - 187) <= 2 &&
                   qAbs(qBlue(blended) - 227) <= 2;
        }));
    }

    void eachOfTwoScreensHasItsOwnPicture_data() {
        QTest::addColumn<QString>("scale");
        QTest::newRow("one to one") << QStringLiteral("1");
        QTest::newRow("two to a point") << QStringLiteral("2");
    }
    void eachOfTwoScreensHasItsOwnPicture() {
        QFETCH(QString, scale);
        const auto session =
            DesktopSession::start({.screen = {1200, 500}, .monitors = Monitors::leftPrimary, .windowManager = {}});
        QVERIFY(session);
        session->environment().insert(QStringLiteral("QT_SCALE_FACTOR"), scale);
        PaintedWindows windows(session->display());
        windows.add({550, 100, 100, 50}, QColor(1, 2, 3));
        const RunningScreenProgram program(*session);
        QCOMPARE(program.capture(leftScreen), windows.expected().copy(0, 0, 600, 500));
        QCOMPARE(program.capture(rightScreen), windows.expected().copy(600, 0, 600, 500));
    }

    void aScreenThatIsUnpluggedLeavesTheOtherItsPicture_data() {
        QTest::addColumn<Monitors>("monitors");
        QTest::newRow("the primary one") << Monitors::leftPrimary;
        QTest::newRow("the other one") << Monitors::rightPrimary;
    }
    void aScreenThatIsUnpluggedLeavesTheOtherItsPicture() {
        QFETCH(Monitors, monitors);
        const auto session = DesktopSession::start({.screen = {1200, 500}, .monitors = monitors, .windowManager = {}});
        QVERIFY(session);
        const PaintedWindows windows(session->display());
        const RunningScreenProgram program(*session);
        QVERIFY(!program.capture(leftScreen).isNull());
        removeMonitor(session->display(), Monitor::left);
        QVERIFY(program.waitForAnswer(QStringLiteral("screens"), QStringLiteral("right:600x500+600+0")));
        QCOMPARE(program.capture(rightScreen), windows.expected().copy(600, 0, 600, 500));
        QVERIFY(program.capture(leftScreen).isNull());
    }

    void whatOfAScreenIsBeyondTheDesktopIsBlack_data() {
        QTest::addColumn<QRect>("area");
        QTest::newRow("right and below") << QRect(600, 0, 800, 600);
        QTest::newRow("left and above") << QRect(-100, -50, 600, 500);
        QTest::newRow("on all sides") << QRect(-10, -20, 1300, 600);
    }
    void whatOfAScreenIsBeyondTheDesktopIsBlack() {
        QFETCH(QRect, area);
        const auto session =
            DesktopSession::start({.screen = {1200, 500}, .monitors = Monitors::leftPrimary, .windowManager = {}});
        QVERIFY(session);
        const PaintedWindows windows(session->display());
        const RunningScreenProgram program(*session);
        moveSecondMonitor(session->display(), Monitor::right, area);
        QVERIFY(DesktopSession::waitFor([&] { return program.screens().contains(placed("right", area)); }));
        QImage expected(area.size(), QImage::Format_RGB32);
        expected.fill(Qt::black);
        QPainter(&expected).drawImage(-area.topLeft(), windows.expected());
        QCOMPARE(program.capture(rightScreen), expected);
    }

    void aScreenThatIsNotOnTheDesktopHasNoPicture() {
        const auto session =
            DesktopSession::start({.screen = {1200, 500}, .monitors = Monitors::leftPrimary, .windowManager = {}});
        QVERIFY(session);
        const RunningScreenProgram program(*session);
        const QRect area(1200, 0, 600, 500);
        moveSecondMonitor(session->display(), Monitor::right, area);
        QVERIFY(DesktopSession::waitFor([&] { return program.screens().contains(placed("right", area)); }));
        QVERIFY(program.capture(rightScreen).isNull());
        QVERIFY(!program.capture(leftScreen).isNull());
    }

    void aServerThatSeesOnlyItsOwnWindowsGivesNoPicture() {
        const auto session =
            DesktopSession::start({.screen = {1200, 500}, .monitors = Monitors::leftPrimary, .windowManager = {}});
        QVERIFY(session);
        const RunningScreenProgram program(*session);
        renameSecondMonitor(session->display(), Monitor::right, "XWAYLAND1");
        const QString screen = placed("XWAYLAND1", {600, 0, 600, 500});
        QVERIFY(DesktopSession::waitFor([&] { return program.screens().contains(screen); }));
        QVERIFY(program.capture(QStringLiteral("XWAYLAND1")).isNull());
        QVERIFY(!program.capture(leftScreen).isNull());
    }

    void withoutAnXServerThereIsNoPicture() {
        const auto refuse = [](const QImage&, QSize) { QFAIL("nothing is to be seen"); };
        QVERIFY(!X11DesktopCapture().read(*QGuiApplication::primaryScreen(), refuse));
    }
};

QTEST_MAIN(X11DesktopCaptureTest)
#include "X11DesktopCaptureTest.moc"
