#include "platform/linux/tray/BusMenuTypes.h"

#include <QDBusMetaType>

namespace zelmo {

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuLayout& layout) {
    argument.beginStructure();
    argument << layout.id << layout.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const BusMenuLayout& child : layout.children)
        argument << QDBusVariant(QVariant::fromValue(child));
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuLayout& layout) {
    argument.beginStructure();
    argument >> layout.id >> layout.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        layout.children.append(qdbus_cast<BusMenuLayout>(child.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuProperties& properties) {
    argument.beginStructure();
    argument << properties.id << properties.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuProperties& properties) {
    argument.beginStructure();
    argument >> properties.id >> properties.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuPropertyNames& names) {
    argument.beginStructure();
    argument << names.id << names.names;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuPropertyNames& names) {
    argument.beginStructure();
    argument >> names.id >> names.names;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuEvent& event) {
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.time;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuEvent& event) {
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.time;
    argument.endStructure();
    return argument;
}

void registerBusMenuTypes() {
    // By the names under which methods and signals take them.
    qRegisterMetaType<BusMenuPropertiesList>("zelmo::BusMenuPropertiesList");
    qRegisterMetaType<BusMenuPropertyNamesList>("zelmo::BusMenuPropertyNamesList");
    qRegisterMetaType<BusMenuEvents>("zelmo::BusMenuEvents");
    qDBusRegisterMetaType<BusMenuLayout>();
    qDBusRegisterMetaType<BusMenuProperties>();
    qDBusRegisterMetaType<BusMenuPropertiesList>();
    qDBusRegisterMetaType<BusMenuPropertyNames>();
    qDBusRegisterMetaType<BusMenuPropertyNamesList>();
    qDBusRegisterMetaType<BusMenuEvent>();
    qDBusRegisterMetaType<BusMenuEvents>();
    qDBusRegisterMetaType<QList<int>>();
}

} // namespace zelmo
