#include "platform/linux/tray/StatusNotifierItem.h"

#include "../session/PrivateBus.h"
#include "FakeWatcher.h"
#include "platform/linux/tray/BusMenuTypes.h"
#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QDBusMetaType>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QVariant yes = QVariant::fromValue(QDBusVariant(true));
const QVariant no = QVariant::fromValue(QDBusVariant(false));
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

QString itemName() {
    return QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid());
}

// An item with a red square, and what a host on the bus sees of it.
class ItemOnBus {
public:
    ItemOnBus() : item(bus.address()) { fill(item); }

    explicit ItemOnBus(const QString& address) : item(address) { fill(item); }

    QDBusMessage call(const QString& path, const QString& interface, const char* method,
                      const QVariantList& arguments = {}) {
        QDBusMessage message = QDBusMessage::createMethodCall(itemName(), path, interface, QString::fromLatin1(method));
        message.setArguments(arguments);
        // The item is in the same thread.
        return bus.services().call(message, QDBus::BlockWithGui);
    }
    QVariant property(const char* name) {
        const QDBusMessage reply =
            call(QStringLiteral("/StatusNotifierItem"), QStringLiteral("org.freedesktop.DBus.Properties"), "Get",
                 {itemInterface, QString::fromLatin1(name)});
        return reply.arguments().value(0).value<QDBusVariant>().variant();
    }
    QDBusMessage callItem(const char* method, const QVariantList& arguments) {
        return call(QStringLiteral("/StatusNotifierItem"), itemInterface, method, arguments);
    }
    QDBusMessage callMenu(const char* method, const QVariantList& arguments) {
        return call(QStringLiteral("/MenuBar"), menuInterface, method, arguments);
    }
    bool waitUntilHosted() {
        return QTest::qWaitFor([this] { return item.hosting() == NotifierHosting::hosted; }, 15'000);
    }

    PrivateBus bus;
    QList<StatusItemClick> clicks;
    QStringList chosen;
    StatusNotifierItem item;

    void setMenu(StatusMenuMark mark, const QString& first = QStringLiteral("Show")) {
        const auto choose = [this](const char* name) {
            return [this, name] { chosen.append(QString::fromLatin1(name)); };
        };
        item.setMenu(
            {{.title = first, .choose = choose("first")},
             {.kind = StatusMenuKind::separator},
             {.kind = StatusMenuKind::checkbox,
              .title = QStringLiteral("Later"),
              .mark = mark,
              .choose = choose("checkbox")},
             {.title = QStringLiteral("a_b"), .state = StatusMenuState::disabled, .choose = choose("disabled")}});
    }

private:
    void fill(StatusNotifierItem& shown) {
        shown.setPainter([](QPainter& painter, const QRectF& place) { painter.fillRect(place, Qt::red); });
        shown.setTitle(QStringLiteral("Zelmo"));
        shown.setClickHandler([this](const StatusItemClick& click) { clicks.append(click); });
        setMenu(StatusMenuMark::off);
        shown.setVisibility(StatusItemVisibility::visible);
    }
};

// Counts a signal of the item.
class SignalCounter : public QObject {
    Q_OBJECT

public:
    SignalCounter(QDBusConnection bus, const QString& path, const QString& interface, const char* name) {
        bus.connect(itemName(), path, interface, QString::fromLatin1(name), this, SLOT(hear(QDBusMessage)));
    }
    int count = 0;
    QDBusMessage last;

private Q_SLOTS:
    void hear(const QDBusMessage& message) {
        ++count;
        last = message;
    }
};

} // namespace

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
        watcher.tellHost(yes, "StatusNotifierHostRegistered");
        QTRY_COMPARE(watcher.items().size(), 1);
        QTRY_COMPARE(on.item.hosting(), NotifierHosting::absent);
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
        }
        QDBusConnection::disconnectFromBus(other);
        QCOMPARE(on.item.hosting(), NotifierHosting::hosted);
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
        QTRY_VERIFY(on.bus.services().call(ownerQuestion(), QDBus::BlockWithGui).type() == QDBusMessage::ErrorMessage);
        on.item.setVisibility(StatusItemVisibility::visible);
        QVERIFY(on.waitUntilHosted());
        QCOMPARE(watcher.items().size(), 2);
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
        QCOMPARE(on.callMenu("GetLayout", {QStringLiteral("all")}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(on.callMenu("Event", {1}).type(), QDBusMessage::ErrorMessage);
        QVERIFY(on.clicks.isEmpty() && on.chosen.isEmpty());
    }

    void hostsDrawTheMenu() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        const QDBusMessage reply = on.callMenu("GetLayout", {0, -1, QStringList()});
        QCOMPARE(reply.signature(), QStringLiteral("u(ia{sv}av)"));
        const auto layout = qdbus_cast<BusMenuLayout>(reply.arguments()[1]);
        QCOMPARE(layout.properties.value(QStringLiteral("children-display")).toString(), QStringLiteral("submenu"));
        QCOMPARE(layout.children.size(), 4);
        const auto value = [&](int line, const char* name) {
            return layout.children[line].properties.value(QString::fromLatin1(name));
        };
        QCOMPARE(layout.children[0].id, 1);
        QCOMPARE(value(0, "label").toString(), QStringLiteral("Show"));
        QCOMPARE(value(0, "enabled"), QVariant(true));
        QCOMPARE(value(1, "type").toString(), QStringLiteral("separator"));
        QCOMPARE(value(2, "toggle-type").toString(), QStringLiteral("checkmark"));
        QCOMPARE(value(2, "toggle-state"), QVariant(0));
        QCOMPARE(value(3, "label").toString(), QStringLiteral("a__b"));
        QCOMPARE(value(3, "enabled"), QVariant(false));

        const auto flat = qdbus_cast<BusMenuLayout>(on.callMenu("GetLayout", {0, 0, QStringList()}).arguments()[1]);
        QVERIFY(flat.children.isEmpty());
        const auto labels = qdbus_cast<BusMenuPropertiesList>(
            on.callMenu("GetGroupProperties",
                        {QVariant::fromValue(QList<int>{1, 3, 99, -1}), QStringList{QStringLiteral("label")}})
                .arguments()[0]);
        QCOMPARE(labels.size(), 2);
        QCOMPARE(labels[1].properties, (QVariantMap{{QStringLiteral("label"), QStringLiteral("Later")}}));
        QCOMPARE(on.callMenu("GetProperty", {1, QStringLiteral("label")})
                     .arguments()[0]
                     .value<QDBusVariant>()
                     .variant()
                     .toString(),
                 QStringLiteral("Show"));
        QCOMPARE(on.callMenu("GetProperty", {77, QStringLiteral("label")}).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(on.callMenu("AboutToShow", {0}).arguments(), QVariantList{false});
        QCOMPARE(on.callMenu("AboutToShowGroup", {QVariant::fromValue(QList<int>{0, 99})}).signature(),
                 QStringLiteral("aiai"));
    }

    void chosenLinesAct() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        const auto event = [&](int id, const char* name) {
            on.callMenu("Event", {id, QString::fromLatin1(name), QVariant::fromValue(QDBusVariant(0)), 0U});
        };
        for (const int id : {0, 2, 4, 5, -1, INT_MAX, INT_MIN})
            event(id, "clicked");
        event(1, "hovered");
        event(3, "clicked");
        event(1, "clicked");
        QTRY_COMPARE(on.chosen, (QStringList{QStringLiteral("checkbox"), QStringLiteral("first")}));
    }

    void changesOfTheMenuAreToldOf() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        const SignalCounter lines(on.bus.services(), QStringLiteral("/MenuBar"), menuInterface,
                                  "ItemsPropertiesUpdated");
        const SignalCounter layouts(on.bus.services(), QStringLiteral("/MenuBar"), menuInterface, "LayoutUpdated");
        on.setMenu(StatusMenuMark::off);
        on.setMenu(StatusMenuMark::on);
        QTRY_COMPARE(lines.count, 1);
        QCOMPARE(lines.last.signature(), QStringLiteral("a(ia{sv})a(ias)"));
        const auto changed = qdbus_cast<BusMenuPropertiesList>(lines.last.arguments()[0]);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0].id, 3);
        QCOMPARE(changed[0].properties.value(QStringLiteral("toggle-state")), QVariant(1));
        on.setMenu(StatusMenuMark::on, QStringLiteral("Hide"));
        QTRY_COMPARE(lines.count, 2);
        QCOMPARE(layouts.count, 0);
        on.item.setMenu({{.title = QStringLiteral("alone")}});
        QTRY_COMPARE(layouts.count, 1);
        QCOMPARE(on.callMenu("GetLayout", {0, -1, QStringList()}).arguments()[0], layouts.last.arguments()[0]);
    }

private:
    static QDBusMessage ownerQuestion() {
        QDBusMessage question =
            QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                           QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
        question.setArguments({itemName()});
        return question;
    }
};

QTEST_GUILESS_MAIN(StatusNotifierItemTest)
#include "StatusNotifierItemTest.moc"
