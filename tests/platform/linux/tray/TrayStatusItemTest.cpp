#include "platform/linux/tray/TrayStatusItem.h"

#include "../session/PrivateBus.h"
#include "FakeTray.h"
#include "FakeWatcher.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/DesktopSession.h"

#include <QDBusVariant>
#include <QPainter>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QVariant yes = QVariant::fromValue(QDBusVariant(true));
const QVariant no = QVariant::fromValue(QDBusVariant(false));

// A desktop with a tray for windows, and a bus on which a watcher may come.
class Desktop {
public:
    Desktop()
        : session(DesktopSession::start({.screen = {640, 400}, .windowManager = {}})),
          connection(session ? X11Connection::open(session->displayName().toLatin1()) : nullptr),
          tray(session->displayName()) {}

    // In the tray for windows.
    bool isInTray() {
        tray.handleEvents();
        return tray.icon() && session->display().geometry(*tray.icon()) &&
               session->display().geometry(*tray.icon())->topLeft() == FakeTray::place().topLeft();
    }
    bool waitUntilInTray() {
        return DesktopSession::waitFor([this] { return isInTray(); });
    }
    bool waitUntilOutOfTray() {
        return DesktopSession::waitFor([this] { return !isInTray(); });
    }

    PrivateBus bus;
    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<X11Connection> connection;
    FakeTray tray;
};

void show(TrayStatusItem& item) {
    item.setTitle(QStringLiteral("Zelmo"));
    item.setPainter([](QPainter& painter, const QRectF& place) { painter.fillRect(place, Qt::red); });
    item.setVisibility(StatusItemVisibility::visible);
}

} // namespace

class TrayStatusItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aWatcherWithAHostComesFirst() {
        Desktop desktop;
        const FakeWatcher watcher(desktop.bus.services(), yes);
        TrayStatusItem item(desktop.bus.address(), desktop.connection.get());
        show(item);
        QVERIFY(DesktopSession::waitFor([&] { return watcher.items().size() == 1; }));
        desktop.tray.handleEvents();
        QCOMPARE(desktop.tray.requests(), 0);
    }

    void withoutAWatcherTheItemIsAWindow() {
        Desktop desktop;
        TrayStatusItem item(desktop.bus.address(), desktop.connection.get());
        show(item);
        QVERIFY(desktop.waitUntilInTray());
    }

    void withoutABusTheItemIsAWindow() {
        Desktop desktop;
        TrayStatusItem item(QString(), desktop.connection.get());
        show(item);
        QVERIFY(desktop.waitUntilInTray());
    }

    void aWatcherWithoutAHostLeavesTheItemAWindow() {
        Desktop desktop;
        FakeWatcher watcher(desktop.bus.services(), no);
        TrayStatusItem item(desktop.bus.address(), desktop.connection.get());
        show(item);
        QVERIFY(desktop.waitUntilInTray());
        watcher.tellHost(yes, "StatusNotifierHostRegistered");
        QVERIFY(desktop.waitUntilOutOfTray());
        QCOMPARE(watcher.items().size(), 1);
    }

    void theItemFollowsAWatcherThatComesAndGoes() {
        Desktop desktop;
        TrayStatusItem item(desktop.bus.address(), desktop.connection.get());
        show(item);
        for (int round = 0; round < 2; ++round) {
            QVERIFY(desktop.waitUntilInTray());
            const FakeWatcher watcher(desktop.bus.services(), yes);
            QVERIFY(desktop.waitUntilOutOfTray());
            QCOMPARE(watcher.items().size(), 1);
        }
        QVERIFY(desktop.waitUntilInTray());
    }

    void theEndOfTheBusMakesTheItemAWindow() {
        Desktop desktop;
        const FakeWatcher watcher(desktop.bus.services(), yes);
        TrayStatusItem item(desktop.bus.address(), desktop.connection.get());
        show(item);
        QVERIFY(DesktopSession::waitFor([&] { return watcher.items().size() == 1; }));
        desktop.bus.kill();
        QVERIFY(desktop.waitUntilInTray());
    }

    void bothKindsHandClicksOn() {
        Desktop desktop;
        TrayStatusItem item(desktop.bus.address(), desktop.connection.get());
        int clicks = 0;
        item.setClickHandler([&](const StatusItemClick&) { ++clicks; });
        show(item);
        QVERIFY(desktop.waitUntilInTray());
        desktop.session->display().click(FakeTray::place().topLeft() + QPoint(5, 5));
        QVERIFY(DesktopSession::waitFor([&] { return clicks == 1; }));
        const FakeWatcher watcher(desktop.bus.services(), yes);
        QVERIFY(desktop.waitUntilOutOfTray());
        QDBusMessage click =
            QDBusMessage::createMethodCall(watcher.items().constFirst(), QStringLiteral("/StatusNotifierItem"),
                                           QStringLiteral("org.kde.StatusNotifierItem"), QStringLiteral("Activate"));
        click.setArguments({1, 1});
        desktop.bus.services().call(click, QDBus::BlockWithGui);
        QVERIFY(DesktopSession::waitFor([&] { return clicks == 2; }));
    }

    void aHiddenItemIsNowhere() {
        Desktop desktop;
        TrayStatusItem item(desktop.bus.address(), desktop.connection.get());
        show(item);
        QVERIFY(desktop.waitUntilInTray());
        item.setVisibility(StatusItemVisibility::hidden);
        QVERIFY(desktop.waitUntilOutOfTray());
        const FakeWatcher watcher(desktop.bus.services(), yes);
        item.setVisibility(StatusItemVisibility::visible);
        QVERIFY(DesktopSession::waitFor([&] { return watcher.items().size() == 1; }));
        QVERIFY(desktop.waitUntilOutOfTray());
    }
};

QTEST_GUILESS_MAIN(TrayStatusItemTest)
#include "TrayStatusItemTest.moc"
