#include "platform/linux/tray/BusMenuAdaptor.h"

namespace zelmo {

namespace {

// Everything that is not the interface's own default.
QVariantMap propertiesOf(const StatusMenuEntry& entry) {
    if (entry.kind == StatusMenuKind::separator)
        return {{QStringLiteral("type"), QStringLiteral("separator")}};
    QString title = entry.title;
    // A single one would mark the letter that follows it.
    title.replace(u'_', QStringLiteral("__"));
    QVariantMap properties{{QStringLiteral("label"), title},
                           {QStringLiteral("enabled"), entry.state == StatusMenuState::enabled},
                           {QStringLiteral("visible"), true}};
    if (entry.kind == StatusMenuKind::checkbox) {
        properties.insert(QStringLiteral("toggle-type"), QStringLiteral("checkmark"));
        properties.insert(QStringLiteral("toggle-state"), entry.mark == StatusMenuMark::on ? 1 : 0);
    }
    return properties;
}

bool haveSameLines(const QList<StatusMenuEntry>& some, const QList<StatusMenuEntry>& others) {
    return std::equal(some.cbegin(), some.cend(), others.cbegin(), others.cend(),
                      [](const StatusMenuEntry& one, const StatusMenuEntry& other) { return one.kind == other.kind; });
}

} // namespace

BusMenuAdaptor::BusMenuAdaptor(QObject* parent) : QDBusAbstractAdaptor(parent) {}

void BusMenuAdaptor::setMenu(const QList<StatusMenuEntry>& menu) {
    const QList<StatusMenuEntry> before = std::exchange(m_menu, menu);
    if (!haveSameLines(before, m_menu)) {
        Q_EMIT LayoutUpdated(++m_revision, 0);
        return;
    }
    BusMenuPropertiesList changed;
    for (qsizetype i = 0; i < m_menu.size(); ++i) {
        const QVariantMap now = propertiesOf(m_menu[i]);
        if (now != propertiesOf(before[i]))
            changed.append({.id = static_cast<int>(i) + 1, .properties = now});
    }
    if (!changed.isEmpty())
        Q_EMIT ItemsPropertiesUpdated(changed, {});
}

QVariantMap BusMenuAdaptor::properties(int id, const QStringList& names) const {
    QVariantMap found;
    if (id == 0)
        found.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
    else if (isLine(id))
        found = propertiesOf(m_menu[id - 1]);
    if (!names.isEmpty())
        found.removeIf([&](const QVariantMap::iterator& property) { return !names.contains(property.key()); });
    return found;
}

uint BusMenuAdaptor::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                               BusMenuLayout& layout) {
    layout = {.id = parentId, .properties = properties(parentId, propertyNames), .children = {}};
    if (parentId == 0 && recursionDepth != 0) {
        for (int id = 1; isLine(id); ++id)
            layout.children.append({.id = id, .properties = properties(id, propertyNames), .children = {}});
    }
    return m_revision;
}

BusMenuPropertiesList BusMenuAdaptor::GetGroupProperties(const QList<int>& ids, const QStringList& propertyNames) {
    BusMenuPropertiesList list;
    // No list of lines stands for all of them.
    for (int id = 0; ids.isEmpty() && (id == 0 || isLine(id)); ++id)
        list.append({.id = id, .properties = properties(id, propertyNames)});
    for (const int id : ids) {
        if (id == 0 || isLine(id))
            list.append({.id = id, .properties = properties(id, propertyNames)});
    }
    return list;
}

QDBusVariant BusMenuAdaptor::GetProperty(int id, const QString& name) {
    return QDBusVariant(properties(id, {}).value(name, QString()));
}

void BusMenuAdaptor::Event(int id, const QString& eventId, const QDBusVariant&, uint) {
    if (eventId != QLatin1StringView("clicked") || !isLine(id))
        return;
    const StatusMenuEntry& entry = m_menu[id - 1];
    if (!entry.choose || entry.state == StatusMenuState::disabled)
        return;
    // After the host has its answer.
    QMetaObject::invokeMethod(this, entry.choose, Qt::QueuedConnection);
}

QList<int> BusMenuAdaptor::EventGroup(const BusMenuEvents& events) {
    QList<int> unknown;
    for (const BusMenuEvent& event : events) {
        if (event.id != 0 && !isLine(event.id))
            unknown.append(event.id);
        Event(event.id, event.name, event.data, event.time);
    }
    return unknown;
}

bool BusMenuAdaptor::AboutToShow(int) {
    return false;
}

QList<int> BusMenuAdaptor::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    for (const int id : ids) {
        if (id != 0 && !isLine(id))
            idErrors.append(id);
    }
    return {};
}

} // namespace zelmo
