#include "platform/linux/tray/XEmbedTrayIcon.h"

#include "FakeTray.h"
#include "Settle.h"

#include <QPainter>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr QRgb socketColor = 0xff204060;

// An icon that is red in its left half and transparent in its right one.
class IconOnServer {
public:
    IconOnServer()
        : session(DesktopSession::start({.screen = {640, 400}, .windowManager = {}})),
          connection(session ? X11Connection::open(session->displayName().toLatin1()) : nullptr) {
        icon.emplace(connection.get());
        icon->setTitle(QStringLiteral("Zelmo"));
        icon->setPainter([](QPainter& painter, const QRectF& place) {
            painter.fillRect(place.adjusted(0, 0, -place.width() / 2, 0), Qt::red);
        });
        icon->setClickHandler([this](const StatusItemClick& click) { clicks.append(click); });
    }

    // What is seen at a place in the tray.
    QRgb pixel(int x, int y) const {
        return session->display().screenshot().pixel(FakeTray::place().topLeft() + QPoint(x, y));
    }
    bool waitUntilSeen(FakeTray& tray, int x = 2, int y = 12) const {
        return DesktopSession::waitFor([&] {
            tray.handleEvents();
            return icon->isEmbedded() && pixel(x, y) == 0xffff0000;
        });
    }
    bool waitUntilGone() const {
        return DesktopSession::waitFor([this] { return !icon->isEmbedded(); });
    }
    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<X11Connection> connection;
    std::optional<XEmbedTrayIcon> icon;
    QList<StatusItemClick> clicks;
};

} // namespace

class XEmbedTrayIconTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theIconAppearsInTheTray_data() {
        QTest::addColumn<FakeTray::Depth>("depth");
        QTest::addColumn<bool>("trayFirst");
        for (const bool trayFirst : {true, false}) {
            const char* when = trayFirst ? "tray first" : "icon first";
            QTest::addRow("as the root, %s", when) << FakeTray::Depth::ofTheRoot << trayFirst;
            QTest::addRow("with alpha, %s", when) << FakeTray::Depth::withAlpha << trayFirst;
            QTest::addRow("a visual that is not there, %s", when) << FakeTray::Depth::unknownVisual << trayFirst;
        }
    }
    void theIconAppearsInTheTray() {
        QFETCH(FakeTray::Depth, depth);
        QFETCH(bool, trayFirst);
        IconOnServer on;
        QVERIFY(on.connection);
        if (!trayFirst)
            on.icon->setVisibility(StatusItemVisibility::visible);
        FakeTray tray(on.session->displayName(), {.depth = depth});
        if (trayFirst)
            on.icon->setVisibility(StatusItemVisibility::visible);
        QVERIFY(on.waitUntilSeen(tray));
        QCOMPARE(tray.requests(), 1);
        QCOMPARE(tray.embedFlags(), 1U);
        // What lies behind it shows through; in a tray with alpha, that is left to the compositor.
        if (depth == FakeTray::Depth::ofTheRoot)
            QCOMPARE(on.pixel(20, 12), socketColor);
    }

    void theIconIsAsLargeAsTheTrayMakesIt() {
        IconOnServer on;
        FakeTray tray(on.session->displayName(), {.icon = {48, 48}});
        on.icon->setVisibility(StatusItemVisibility::visible);
        QVERIFY(on.waitUntilSeen(tray, 2, 44));
        tray.resizeIcon({16, 16});
        QVERIFY(
            DesktopSession::waitFor([&] { return on.pixel(4, 14) == 0xffff0000 && on.pixel(20, 14) == socketColor; }));
        // In the middle of what is not square.
        tray.resizeIcon({40, 20});
        QVERIFY(
            DesktopSession::waitFor([&] { return on.pixel(12, 10) == 0xffff0000 && on.pixel(5, 10) == socketColor; }));
    }

    void theIconAsksForTheThicknessOfTheTray_data() {
        QTest::addColumn<std::uint32_t>("orientation");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("asked");
        QTest::newRow("horizontal") << 0U << QSize(1, 30) << QSize(30, 30);
        QTest::newRow("vertical") << 1U << QSize(36, 1) << QSize(36, 36);
        QTest::newRow("absurdly large") << 0U << QSize(20000, 30000) << QSize(192, 192);
        QTest::newRow("nothing") << 0U << QSize(1, 1) << QSize(16, 16);
    }
    void theIconAsksForTheThicknessOfTheTray() {
        QFETCH(std::uint32_t, orientation);
        QFETCH(QSize, size);
        QFETCH(QSize, asked);
        IconOnServer on;
        FakeTray tray(on.session->displayName(), {.icon = size, .orientation = orientation});
        on.icon->setVisibility(StatusItemVisibility::visible);
        QVERIFY(DesktopSession::waitFor([&] {
            tray.handleEvents();
            return tray.icon() && tray.askedSize() == asked;
        }));
    }

    void theSameThicknessIsAskedForOnce() {
        IconOnServer on;
        FakeTray tray(on.session->displayName(), {.icon = {1, 30}});
        on.icon->setVisibility(StatusItemVisibility::visible);
        QVERIFY(DesktopSession::waitFor([&] {
            tray.handleEvents();
            return tray.icon() && tray.askedSize() == QSize(30, 30);
        }));
        settle(*on.connection);
        tray.handleEvents();
        const int changes = tray.sizeRequests();
        for (int width = 2; width < 30; ++width)
            tray.resizeIcon({width, 30});
        settle(*on.connection);
        tray.handleEvents();
        QCOMPARE(tray.sizeRequests(), changes);
    }

    void anAbsurdSizeIsSurvived() {
        IconOnServer on;
        FakeTray tray(on.session->displayName());
        on.icon->setVisibility(StatusItemVisibility::visible);
        QVERIFY(on.waitUntilSeen(tray));
        for (const QSize size :
             {QSize(32767, 32767), QSize(65535, 65535), QSize(100000, 100000), QSize(0, 0), QSize(1, 1)}) {
            tray.resizeIcon(size);
            settle(*on.connection);
        }
        tray.resizeIcon({24, 24});
        QVERIFY(on.waitUntilSeen(tray));
    }

    void aNewPainterShows() {
        IconOnServer on;
        FakeTray tray(on.session->displayName());
        on.icon->setVisibility(StatusItemVisibility::visible);
        QVERIFY(on.waitUntilSeen(tray));
        on.icon->setPainter([](QPainter& painter, const QRectF& place) {
            painter.fillRect(place.adjusted(place.width() / 2, 0, 0, 0), Qt::green);
        });
        QVERIFY(DesktopSession::waitFor([&] { return on.pixel(20, 12) == 0xff00ff00; }));
        // Nothing is left of the old one.
        QCOMPARE(on.pixel(2, 12), socketColor);
    }

    void clicksTellWhereTheIconIs() {
        IconOnServer on;
        FakeTray tray(on.session->displayName());
        on.icon->setVisibility(StatusItemVisibility::visible);
        QVERIFY(on.waitUntilSeen(tray));
        on.session->display().click(FakeTray::place().topLeft() + QPoint(5, 5));
        QVERIFY(DesktopSession::waitFor([&] { return on.clicks.size() == 1; }));
        QCOMPARE(on.clicks[0].place, QRect(FakeTray::place().topLeft(), QSize(24, 24)));
        QVERIFY(on.clicks[0].activationToken.contains("_TIME"));
        QVERIFY(on.clicks[0].activationToken.mid(on.clicks[0].activationToken.indexOf("_TIME") + 5).toUInt() > 0);
        // Beside it, there is only the tray.
        on.session->display().click(FakeTray::place().topLeft() + QPoint(40, 40));
        settle(*on.connection);
        QCOMPARE(on.clicks.size(), 1);
    }

    void theIconComesBackWithEveryTray() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        for (int round = 0; round < 3; ++round) {
            {
                FakeTray tray(on.session->displayName());
                QVERIFY(on.waitUntilSeen(tray));
            }
            QVERIFY(on.waitUntilGone());
        }
    }

    void theIconMovesToATrayThatTakesOver() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        FakeTray first(on.session->displayName());
        QVERIFY(on.waitUntilSeen(first));
        FakeTray second(on.session->displayName());
        QVERIFY(DesktopSession::waitFor([&] {
            second.handleEvents();
            return second.requests() == 1 && on.icon->isEmbedded();
        }));
    }

    void anIconThatItsTrayLetsGoDoesNotStandOnTheDesktop() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        FakeTray tray(on.session->displayName());
        QVERIFY(on.waitUntilSeen(tray));
        tray.release();
        QVERIFY(on.waitUntilGone());
        settle(*on.connection);
        QVERIFY(!on.session->display().geometry(*tray.icon()));
    }

    void anIconThatItsTrayDestroysComesBackWithTheNext() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        {
            FakeTray tray(on.session->displayName());
            QVERIFY(on.waitUntilSeen(tray));
            tray.destroyIcon();
            QVERIFY(on.waitUntilGone());
        }
        FakeTray next(on.session->displayName());
        QVERIFY(on.waitUntilSeen(next));
    }

    void aTrayThatDiesWhileDockingIsSurvived() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        for (int round = 0; round < 10; ++round) {
            FakeTray tray(on.session->displayName(), {.docking = FakeTray::Docking::dies});
            QVERIFY(DesktopSession::waitFor([&] {
                tray.handleEvents();
                return tray.requests() == 1;
            }));
        }
        FakeTray sound(on.session->displayName());
        QVERIFY(on.waitUntilSeen(sound));
    }

    // The server is asked about windows that are gone by then.
    void aTrayThatIsGoneBeforeItIsLookedAtIsSurvived() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        for (int round = 0; round < 10; ++round)
            const FakeTray tray(on.session->displayName());
        settle(*on.connection);
        QVERIFY(!on.icon->isEmbedded());
        FakeTray sound(on.session->displayName());
        QVERIFY(on.waitUntilSeen(sound));
    }

    void aTrayThatOnlyListensIsSurvived() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        FakeTray tray(on.session->displayName(), {.docking = FakeTray::Docking::ignores});
        QVERIFY(DesktopSession::waitFor([&] {
            tray.handleEvents();
            return tray.requests() == 1;
        }));
        settle(*on.connection);
        QVERIFY(!on.icon->isEmbedded());
        tray.giveUp();
        settle(*on.connection);
        FakeTray next(on.session->displayName());
        QVERIFY(on.waitUntilSeen(next));
    }

    void messagesWithoutSenseAreIgnored() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        FakeTray tray(on.session->displayName());
        QVERIFY(on.waitUntilSeen(tray));
        tray.sendNonsense();
        settle(*on.connection);
        QVERIFY(on.waitUntilSeen(tray));
        QCOMPARE(tray.requests(), 1);
    }

    void aHiddenIconLeavesTheTray() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        FakeTray tray(on.session->displayName());
        QVERIFY(on.waitUntilSeen(tray));
        on.icon->setVisibility(StatusItemVisibility::hidden);
        settle(*on.connection);
        QVERIFY(!on.session->display().geometry(*tray.icon()));
        on.icon->setVisibility(StatusItemVisibility::visible);
        QVERIFY(on.waitUntilSeen(tray));
        QCOMPARE(tray.requests(), 2);
    }

    void withoutAServerNothingHappens() {
        XEmbedTrayIcon icon(nullptr);
        icon.setTitle(QStringLiteral("Zelmo"));
        icon.setPainter([](QPainter&, const QRectF&) {});
        icon.setVisibility(StatusItemVisibility::visible);
        QVERIFY(!icon.isEmbedded());
    }

    void theEndOfTheServerIsSurvived() {
        IconOnServer on;
        on.icon->setVisibility(StatusItemVisibility::visible);
        {
            FakeTray tray(on.session->displayName());
            QVERIFY(on.waitUntilSeen(tray));
        }
        on.session->endServer();
        QCoreApplication::processEvents();
        on.icon->setTitle(QStringLiteral("Other"));
        on.icon->setVisibility(StatusItemVisibility::hidden);
        on.icon->setVisibility(StatusItemVisibility::visible);
    }
};

QTEST_GUILESS_MAIN(XEmbedTrayIconTest)
#include "XEmbedTrayIconTest.moc"
