#include "ItemOnBus.h"
#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QDBusMetaType>
#include <QImage>

using namespace zelmo;
using namespace zelmo::test;

class StatusNotifierItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theItemRegistersWithAWatcherThatHasAHost() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        QCOMPARE(watcher.items(), QStringList{itemName()});
    }

    void aWatcherThatIsThereFirstIsFound() {
        const PrivateBus bus;
        const FakeWatcher watcher(bus.services(), yes);
        StatusNotifierItem item(bus.address());
        item.setVisibility(StatusItemVisibility::visible);
        QTRY_COMPARE(item.hosting(), NotifierHosting::hosted);
        QCOMPARE(watcher.items().size(), 1);
    }

    void withoutABusThereIsNoHost() {
        StatusNotifierItem item{QString()};
        QCOMPARE(item.hosting(), NotifierHosting::unknown);
        item.setVisibility(StatusItemVisibility::visible);
        QCOMPARE(item.hosting(), NotifierHosting::absent);
        StatusNotifierItem nowhere(QStringLiteral("unix:path=/nonexistent/socket"));
        nowhere.setVisibility(StatusItemVisibility::visible);
        QTRY_COMPARE(nowhere.hosting(), NotifierHosting::absent);
        StatusNotifierItem nonsense(QStringLiteral("no address at all"));
        nonsense.setVisibility(StatusItemVisibility::visible);
        QTRY_COMPARE(nonsense.hosting(), NotifierHosting::absent);
    }

    void withoutAWatcherThereIsNoHost() {
        ItemOnBus on;
        QTRY_COMPARE(on.item.hosting(), NotifierHosting::absent);
    }

    void noWatcherIsStartedForTheItem() {
        const PrivateBus bus;
        bus.makeStartable(QStringLiteral("org.kde.StatusNotifierWatcher"));
        StatusNotifierItem item(bus.address());
        item.setVisibility(StatusItemVisibility::visible);
        QTRY_COMPARE(item.hosting(), NotifierHosting::absent);
        QVERIFY(!bus.wasStarted(QStringLiteral("org.kde.StatusNotifierWatcher")));
    }

    void aWatcherWithoutAHostDoesNotCount_data() {
        QTest::addColumn<QVariant>("answer");
        QTest::newRow("no") << no;
        QTest::newRow("a text") << QVariant::fromValue(QDBusVariant(QStringLiteral("true")));
        QTest::newRow("a number") << QVariant::fromValue(QDBusVariant(1));
        QTest::newRow("no variant") << QVariant(true);
        QTest::newRow("an error") << QVariant();
    }
    void aWatcherWithoutAHostDoesNotCount() {
        QFETCH(QVariant, answer);
        ItemOnBus on;
        FakeWatcher watcher(on.bus.services(), answer);
        QTRY_VERIFY(watcher.questions() > 0);
        QTRY_COMPARE(on.item.hosting(), NotifierHosting::absent);
        QVERIFY(watcher.items().isEmpty());
        watcher.tellHost(yes, "StatusNotifierHostRegistered");
        QVERIFY(on.waitUntilHosted());
    }

    void aHostThatGoesIsNoticedAndOneThatComesBack() {
        ItemOnBus on;
        FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        watcher.tellHost(no, "StatusNotifierHostUnregistered");
        QTRY_COMPARE(on.item.hosting(), NotifierHosting::absent);
        watcher.tellHost(yes, "StatusNotifierHostRegistered");
        QVERIFY(on.waitUntilHosted());
        // The watcher knows it still.
        QCOMPARE(watcher.items().size(), 1);
    }

    void theItemComesBackWithEveryWatcher() {
        ItemOnBus on;
        for (int round = 0; round < 3; ++round) {
            {
                const FakeWatcher watcher(on.bus.services(), yes);
                QVERIFY(on.waitUntilHosted());
                QCOMPARE(watcher.items().size(), 1);
            }
            QTRY_COMPARE(on.item.hosting(), NotifierHosting::absent);
        }
    }

    void aWatcherThatRefusesTheItemDoesNotCount() {
        ItemOnBus on;
        FakeWatcher watcher(on.bus.services(), no);
        watcher.setRegistering(FakeWatcher::Registering::refused);
        // Else it may learn of the host twice, and try twice.
        QTRY_COMPARE(watcher.questions(), 1);
        watcher.tellHost(yes, "StatusNotifierHostRegistered");
        QTRY_COMPARE(watcher.items().size(), 1);
        QTRY_COMPARE(on.item.hosting(), NotifierHosting::absent);
    }

    // As in a container, where processes have the numbers of others outside.
    void anItemWhoseNameAnotherProgramHasDoesNotCount() {
        const PrivateBus bus;
        QVERIFY(bus.services().registerService(itemName()));
        const FakeWatcher watcher(bus.services(), yes);
        StatusNotifierItem item(bus.address());
        item.setVisibility(StatusItemVisibility::visible);
        QTRY_COMPARE(item.hosting(), NotifierHosting::absent);
        QCOMPARE(watcher.items(), QStringList());
    }

    void signalsOfSomebodyElseCountForNothing() {
        ItemOnBus on;
        FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        const int questions = watcher.questions();
        const QString other = QStringLiteral("stranger");
        {
            QDBusConnection stranger = QDBusConnection::connectToBus(on.bus.address(), other);
            QDBusMessage lie =
                QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/DBus"),
                                           QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameOwnerChanged"));
            lie.setArguments({QStringLiteral("org.kde.StatusNotifierWatcher"), QString(), QString()});
            stranger.send(lie);
            stranger.send(QDBusMessage::createSignal(QStringLiteral("/StatusNotifierWatcher"),
                                                     QStringLiteral("org.kde.StatusNotifierWatcher"),
                                                     QStringLiteral("StatusNotifierHostUnregistered")));
            // Answered after both have arrived.
            QDBusMessage last =
                QDBusMessage::createMethodCall(itemName(), QStringLiteral("/StatusNotifierItem"),
                                               QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
            stranger.call(last, QDBus::BlockWithGui);
            QCoreApplication::processEvents();
        }
        QDBusConnection::disconnectFromBus(other);
        QCOMPARE(on.item.hosting(), NotifierHosting::hosted);
        // What the item had asked by now would have arrived before its answer.
        on.property("Id");
        QCoreApplication::processEvents();
        QCOMPARE(watcher.questions(), questions);
    }

    void theEndOfTheBusIsNoticed() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        on.bus.kill();
        QTRY_COMPARE(on.item.hosting(), NotifierHosting::absent);
        on.item.setTitle(QStringLiteral("still there"));
    }

    void theItemComesBackWithTheBus() {
        ItemOnBus on;
        // It is connected.
        QTRY_COMPARE(on.item.hosting(), NotifierHosting::absent);
        for (int end = 0; end < 2; ++end) {
            on.bus.kill();
            QTRY_COMPARE(on.item.hosting(), NotifierHosting::absent);
            on.bus.startAgain();
            const FakeWatcher watcher(on.bus.services(), yes);
            QVERIFY(on.waitUntilHosted());
            QCOMPARE(watcher.items(), QStringList{itemName()});
            QCOMPARE(on.property("Title").toString(), QStringLiteral("Zelmo"));
        }
    }

    void aBusThatStandsStillIsNotWaitedFor() {
        const PrivateBus bus;
        bus.setRunning(false);
        auto item = std::make_unique<StatusNotifierItem>(bus.address());
        int turns = 0;
        item->setVisibility(StatusItemVisibility::visible);
        item->setTitle(QStringLiteral("Zelmo"));
        // The loop turns meanwhile.
        QMetaObject::invokeMethod(
            item.get(), [&turns] { ++turns; }, Qt::QueuedConnection);
        QTRY_COMPARE(turns, 1);
        QCOMPARE(item->hosting(), NotifierHosting::unknown);
        bus.setRunning(true);
        QTRY_COMPARE(item->hosting(), NotifierHosting::absent);
    }

    void aHiddenItemLeavesTheHosts() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        on.item.setVisibility(StatusItemVisibility::hidden);
        QTRY_VERIFY(!isNamed(on.bus));
        on.item.setVisibility(StatusItemVisibility::visible);
        QVERIFY(on.waitUntilHosted());
        QCOMPARE(watcher.items().size(), 2);
    }

    // After each further turn of the event loop another answer is on its way.
    void anItemHiddenWhileItRegistersLeavesTheHosts() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        int turns = 0;
        for (bool wasHosted = false; !wasHosted; ++turns) {
            on.item.setVisibility(StatusItemVisibility::hidden);
            QTest::qWait(20);
            QVERIFY2(!isNamed(on.bus), qPrintable(QString::number(turns)));
            QCOMPARE(on.item.hosting(), NotifierHosting::unknown);
            on.item.setVisibility(StatusItemVisibility::visible);
            for (int turn = 0; turn < turns && !wasHosted; ++turn) {
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
                wasHosted = on.item.hosting() == NotifierHosting::hosted;
            }
        }
        QVERIFY(turns > 4);
        QVERIFY(isNamed(on.bus));
    }

    void hostsReadWhatTheItemIs() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        QCOMPARE(on.property("Id").toString(), QStringLiteral("org.zelmo.Zelmo"));
        QCOMPARE(on.property("Title").toString(), QStringLiteral("Zelmo"));
        QCOMPARE(on.property("Category").toString(), QStringLiteral("ApplicationStatus"));
        QCOMPARE(on.property("Status").toString(), QStringLiteral("Active"));
        QCOMPARE(on.property("ItemIsMenu"), QVariant(false));
        QCOMPARE(on.property("IconName").toString(), QString());
        QCOMPARE(on.property("Menu").value<QDBusObjectPath>().path(), QStringLiteral("/MenuBar"));
        const auto toolTip = qdbus_cast<NotifierToolTip>(on.property("ToolTip"));
        QCOMPARE(toolTip.title, QStringLiteral("Zelmo"));
        QCOMPARE(on.property("ToolTip").value<QDBusArgument>().currentSignature(), QStringLiteral("(sa(iiay)ss)"));
    }

    void hostsReadTheIconInNetworkOrderAtEverySize() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        QCOMPARE(on.property("IconPixmap").value<QDBusArgument>().currentSignature(), QStringLiteral("a(iiay)"));
        const auto pixmaps = qdbus_cast<NotifierPixmaps>(on.property("IconPixmap"));
        QList<int> sides;
        for (const NotifierPixmap& pixmap : pixmaps) {
            QCOMPARE(pixmap.width, pixmap.height);
            sides.append(pixmap.width);
            QCOMPARE(pixmap.bytes, QByteArray("\xff\xff\x00\x00", 4).repeated(pixmap.width * pixmap.height));
        }
        for (const int side : {16, 18, 22, 24, 32})
            QVERIFY(sides.contains(side) && sides.contains(2 * side));
    }

    void halfTransparentPixelsAreNotPremultiplied() {
        QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(255, 0, 0, 128));
        QCOMPARE(NotifierPixmap::of(image).bytes, QByteArray("\x80\xff\x00\x00", 4));
    }

    void aNewPainterIsToldOfAndShown() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        const SignalCounter icons(on.bus.services(), QStringLiteral("/StatusNotifierItem"), itemInterface, "NewIcon");
        const SignalCounter tips(on.bus.services(), QStringLiteral("/StatusNotifierItem"), itemInterface, "NewToolTip");
        on.item.setPainter([](QPainter& painter, const QRectF& place) { painter.fillRect(place, Qt::blue); });
        QTRY_COMPARE(icons.count, 1);
        QCOMPARE(qdbus_cast<NotifierPixmaps>(on.property("IconPixmap")).constFirst().bytes.first(4),
                 QByteArray("\xff\x00\x00\xff", 4));
        on.item.setTitle(QStringLiteral("Other"));
        QTRY_COMPARE(tips.count, 1);
        QCOMPARE(on.property("Title").toString(), QStringLiteral("Other"));
    }

    void clicksCarryPlaceAndToken() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        on.callItem("ProvideXdgActivationToken", {QStringLiteral("some_TIME5")});
        on.callItem("Activate", {12, 34});
        QTRY_COMPARE(on.clicks.size(), 1);
        QCOMPARE(on.clicks[0].place, QRect(12, 34, 0, 0));
        QCOMPARE(on.clicks[0].activationToken, QByteArray("some_TIME5"));
        // A token is for one click.
        on.callItem("SecondaryActivate", {1, 2});
        QTRY_COMPARE(on.clicks.size(), 2);
        QVERIFY(on.clicks[1].activationToken.isEmpty());
        on.callItem("ContextMenu", {INT_MIN, INT_MAX});
        QTRY_COMPARE(on.clicks.size(), 3);
        QVERIFY(!on.clicks[2].place);
        QCOMPARE(on.callItem("Scroll", {120, QStringLiteral("vertical")}).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(on.clicks.size(), 3);
    }

    void argumentsOfOtherTypesAreRefused() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        QCOMPARE(on.callItem("Activate", {QStringLiteral("x"), 1}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(on.callItem("Activate", {}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(on.callItem("Nothing", {}).type(), QDBusMessage::ErrorMessage);
        QVERIFY(on.clicks.isEmpty() && on.chosen.isEmpty());
    }

private:
    static bool isNamed(const PrivateBus& bus) {
        QDBusMessage question =
            QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                           QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
        question.setArguments({itemName()});
        return bus.services().call(question, QDBus::BlockWithGui).type() == QDBusMessage::ReplyMessage;
    }
};

QTEST_GUILESS_MAIN(StatusNotifierItemTest)
#include "StatusNotifierItemTest.moc"
