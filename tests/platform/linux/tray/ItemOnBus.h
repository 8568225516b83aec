#pragma once

#include "../session/PrivateBus.h"
#include "FakeWatcher.h"
#include "platform/linux/tray/StatusNotifierItem.h"

#include <QCoreApplication>
#include <QDBusVariant>
#include <QPainter>
#include <QTest>

namespace zelmo::test {

inline const QVariant yes = QVariant::fromValue(QDBusVariant(true));
inline const QVariant no = QVariant::fromValue(QDBusVariant(false));
inline const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
inline const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

inline QString itemName() {
    return QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid());
}

// An item with a red square, and what a host on the bus sees of it.
class ItemOnBus {
public:
    ItemOnBus() : item(bus.address()) { fill(item); }

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

    // Lines of every kind.
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

} // namespace zelmo::test
