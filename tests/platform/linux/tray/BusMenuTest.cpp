#include "ItemOnBus.h"
#include "platform/linux/tray/BusMenuTypes.h"

#include <climits>

using namespace zelmo;
using namespace zelmo::test;

// The item's menu, as hosts that draw only menus have it.
class BusMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
        // Whoever names no line asks for all of them, the menu itself among them.
        const auto all = qdbus_cast<BusMenuPropertiesList>(
            on.callMenu("GetGroupProperties", {QVariant::fromValue(QList<int>()), QStringList()}).arguments()[0]);
        QCOMPARE(all.size(), 5);
        QCOMPARE(all[4].id, 4);
        QCOMPARE(all[4].properties, layout.children[3].properties);
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

    void linesThatAreChosenTogetherActInTurn() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        BusMenuEvents events;
        for (const int id : {3, 99, 4, 0, -1, 1})
            events.append({.id = id, .name = QStringLiteral("clicked"), .data = QDBusVariant(0)});
        const QDBusMessage reply = on.callMenu("EventGroup", {QVariant::fromValue(events)});
        // The host learns which of them there are not.
        QCOMPARE(qdbus_cast<QList<int>>(reply.arguments().value(0)), (QList<int>{99, -1}));
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

    void argumentsOfOtherTypesAreRefused() {
        ItemOnBus on;
        const FakeWatcher watcher(on.bus.services(), yes);
        QVERIFY(on.waitUntilHosted());
        QCOMPARE(on.callMenu("GetLayout", {QStringLiteral("all")}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(on.callMenu("Event", {1}).type(), QDBusMessage::ErrorMessage);
        QVERIFY(on.chosen.isEmpty());
    }
};

QTEST_GUILESS_MAIN(BusMenuTest)
#include "BusMenuTest.moc"
