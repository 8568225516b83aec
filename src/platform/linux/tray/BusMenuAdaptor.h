#pragma once

#include "menubar/StatusItem.h"
#include "platform/linux/tray/BusMenuTypes.h"

#include <QDBusAbstractAdaptor>

namespace zelmo {

// The item's menu for hosts that draw it themselves: one level of lines, numbered from 1; 0 is the menu as a whole.
// Child of the menu's object; main thread.
class BusMenuAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")

    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    explicit BusMenuAdaptor(QObject* parent);

    // Tells the hosts which lines have changed, or that the menu has other lines now.
    void setMenu(const QList<StatusMenuEntry>& menu);

    static uint version() { return 3; }
    static QString textDirection() { return QStringLiteral("ltr"); }
    static QString status() { return QStringLiteral("normal"); }
    static QStringList iconThemePath() { return {}; }

public Q_SLOTS:
    // An empty list of names stands for all; an unknown line has no properties.
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames, zelmo::BusMenuLayout& layout);
    zelmo::BusMenuPropertiesList GetGroupProperties(const QList<int>& ids, const QStringList& propertyNames);
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const zelmo::BusMenuEvents& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

Q_SIGNALS:
    void ItemsPropertiesUpdated(const zelmo::BusMenuPropertiesList& updatedProps,
                                const zelmo::BusMenuPropertyNamesList& removedProps);
    void LayoutUpdated(uint revision, int parent);
    void ItemActivationRequested(int id, uint timestamp);

private:
    bool isLine(int id) const { return id > 0 && id <= m_menu.size(); }
    QVariantMap properties(int id, const QStringList& names) const;

    QList<StatusMenuEntry> m_menu;
    uint m_revision = 1;
};

} // namespace zelmo
