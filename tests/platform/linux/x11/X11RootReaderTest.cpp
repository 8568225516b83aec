#include "PaintedWindows.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11RootReader.h"
#include "support/DesktopSession.h"
#include "support/WholePicture.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/socket.h>

using namespace zelmo;
using namespace zelmo::test;
using namespace std::chrono_literals;

namespace {

class Fixture {
public:
    explicit Fixture(DesktopOptions options = {}) {
        options.windowManager = QString();
        session = DesktopSession::start(options);
        if (!session)
            qFatal("no X server");
        connection = X11Connection::open(session->displayName().toLatin1());
        windows = std::make_unique<PaintedWindows>(session->display());
    }

    X11RootReader reader(std::chrono::milliseconds patience = 1min) const {
        return {connection->get(), connection->root(), patience};
    }
    bool serverAnswers() const {
        return XcbReply<xcb_get_input_focus_reply_t>(xcb_get_input_focus_reply(
                   connection->get(), xcb_get_input_focus(connection->get()), nullptr)) != nullptr;
    }

    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<PaintedWindows> windows;
};

QImage seenBy(const X11RootReader& reader, const QRect& part) {
    return wholePicture([&](const DesktopCapture::TakeRows& take) { return reader.read(part, take); });
}

// The process at the other end.
pid_t serverOf(xcb_connection_t* connection) {
    ucred peer{};
    socklen_t length = sizeof peer;
    getsockopt(xcb_get_file_descriptor(connection), SOL_SOCKET, SO_PEERCRED, &peer, &length);
    return peer.pid;
}

bool sharesAScreen(pid_t process) {
    QFile maps(QStringLiteral("/proc/%1/maps").arg(process));
    if (!maps.open(QFile::ReadOnly))
        qFatal("what the process has in its memory can't be read");
    return maps.readAll().contains("zelmo-screen");
}

qsizetype openFiles() {
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
}

} // namespace

class X11RootReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachPixelIsWhatTheScreenShows_data() {
        QTest::addColumn<int>("depth");
        QTest::addColumn<SharedMemory>("sharedMemory");
        for (const int depth : {15, 16, 24, 30}) {
            QTest::addRow("depth %d", depth) << depth << SharedMemory::offered;
            QTest::addRow("depth %d without shared memory", depth) << depth << SharedMemory::missing;
        }
    }
    void eachPixelIsWhatTheScreenShows() {
        QFETCH(int, depth);
        QFETCH(SharedMemory, sharedMemory);
        // A width at which lines of 16 bits a pixel need padding.
        const Fixture fixture({.screen = {1019, 613}, .depth = depth, .sharedMemory = sharedMemory});
        QCOMPARE(fixture.reader().area(), std::optional(QRect(0, 0, 1019, 613)));
        const QImage picture = seenBy(fixture.reader(), {0, 0, 1019, 613});
        QCOMPARE(picture.format(), QImage::Format_RGB32);
        QCOMPARE(picture, fixture.windows->expected());
        QCOMPARE(qAlpha(reinterpret_cast<const QRgb*>(picture.constScanLine(612))[1018]), 255);

        const QRect part(97, 41, 333, 218);
        QCOMPARE(seenBy(fixture.reader(), part), fixture.windows->expected().copy(part));
    }

    void aPictureLivesOnByItself() {
        auto fixture = std::make_unique<Fixture>();
        const QRect all(QPoint(0, 0), fixture->session->display().size());
        const QImage picture = seenBy(fixture->reader(), all);
        const QImage expected = fixture->windows->expected();
        fixture->windows->add(all, Qt::green);
        QVERIFY(seenBy(fixture->reader(), all) != picture);
        fixture.reset();
        QCOMPARE(picture, expected);
    }

    void numbersInATableOfColorsAreNoPicture() {
        const Fixture fixture({.screen = {640, 480}, .depth = 8});
        QVERIFY(seenBy(fixture.reader(), {0, 0, 640, 480}).isNull());
        QVERIFY(fixture.serverAnswers());
    }

    void partsThatReachBeyondTheRootAreNoPicture_data() {
        QTest::addColumn<QRect>("part");
        QTest::addColumn<SharedMemory>("sharedMemory");
        for (const SharedMemory memory : {SharedMemory::offered, SharedMemory::missing}) {
            const char* way = memory == SharedMemory::offered ? "shared" : "received";
            QTest::addRow("right, %s", way) << QRect(600, 0, 41, 480) << memory;
            QTest::addRow("below, %s", way) << QRect(0, 0, 640, 481) << memory;
            QTest::addRow("left, %s", way) << QRect(-1, 0, 640, 480) << memory;
            QTest::addRow("far away, %s", way) << QRect(70000, 0, 640, 480) << memory;
            QTest::addRow("empty, %s", way) << QRect(10, 10, 0, 5) << memory;
        }
    }
    void partsThatReachBeyondTheRootAreNoPicture() {
        QFETCH(QRect, part);
        QFETCH(SharedMemory, sharedMemory);
        const Fixture fixture({.screen = {640, 480}, .sharedMemory = sharedMemory});
        QVERIFY(seenBy(fixture.reader(), part).isNull());
        QVERIFY(fixture.serverAnswers());
        // The server's complaint is nobody else's to hear.
        const XcbEvent complaint(xcb_poll_for_event(fixture.connection->get()));
        QVERIFY(!complaint);
        QVERIFY(!seenBy(fixture.reader(), {0, 0, 640, 480}).isNull());
    }

    void aPictureThatTakesTooLongIsNone() {
        const Fixture fixture({.sharedMemory = SharedMemory::missing});
        const QRect all(QPoint(0, 0), fixture.session->display().size());
        QVERIFY(seenBy(fixture.reader(0ms), all).isNull());
        QCOMPARE(seenBy(fixture.reader(), all), fixture.windows->expected());
    }

    void nothingIsLeftOfTheWayAPictureCame() {
        const Fixture fixture;
        const QRect all(QPoint(0, 0), fixture.session->display().size());
        const pid_t server = serverOf(fixture.connection->get());
        const qsizetype filesBefore = openFiles();
        QImage picture;
        for (int i = 0; i < 20; ++i)
            picture = seenBy(fixture.reader(), all);
        QVERIFY(!picture.isNull());
        QVERIFY(!sharesAScreen(getpid()));
        QCOMPARE(openFiles(), filesBefore);
        QVERIFY(fixture.serverAnswers());
        QVERIFY(!sharesAScreen(server));
        // Nor of one that was given up on.
        QVERIFY(seenBy(fixture.reader(0ms), all).isNull());
        QVERIFY(fixture.serverAnswers());
        QVERIFY(!sharesAScreen(server));
    }

    void aServerThatGoesAwayGivesNone() {
        const Fixture fixture;
        const X11RootReader reader = fixture.reader();
        fixture.session->endServer();
        QCOMPARE(reader.area(), std::nullopt);
        QVERIFY(seenBy(reader, {0, 0, 10, 10}).isNull());
    }
};

QTEST_GUILESS_MAIN(X11RootReaderTest)
#include "X11RootReaderTest.moc"
