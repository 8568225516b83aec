#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QVariantMap>

namespace zelmo {

// One line of a menu with its sublines, as the desktop's menu interface sends it.
struct BusMenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<BusMenuLayout> children;
};

struct BusMenuProperties {
    int id = 0;
    QVariantMap properties;
};
using BusMenuPropertiesList = QList<BusMenuProperties>;

struct BusMenuPropertyNames {
    int id = 0;
    QStringList names;
};
using BusMenuPropertyNamesList = QList<BusMenuPropertyNames>;

struct BusMenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint time = 0;
};
using BusMenuEvents = QList<BusMenuEvent>;

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuLayout& layout);
QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuProperties& properties);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuProperties& properties);
QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuPropertyNames& names);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuPropertyNames& names);
QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuEvent& event);

// Before any of them is sent or received.
void registerBusMenuTypes();

} // namespace zelmo

Q_DECLARE_METATYPE(zelmo::BusMenuLayout)
Q_DECLARE_METATYPE(zelmo::BusMenuProperties)
Q_DECLARE_METATYPE(zelmo::BusMenuPropertyNames)
Q_DECLARE_METATYPE(zelmo::BusMenuEvent)
