#pragma once

#include "menubar/StatusItem.h"
#include "platform/linux/session/ReconnectTimer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <memory>
#include <optional>

class QThread;

namespace zelmo {

class BusMenuAdaptor;
class StatusNotifierAdaptor;

// Whether hosts on the session bus show the item.
enum class NotifierHosting {
    unknown, // nobody has answered yet
    absent,  // there is no watcher, it has no host, or it refuses the item
    hosted,
};

// The program's item on the session bus, registered with the desktop's watcher, as often as one comes up with a host,
// and a bus again after the first. It waits for nothing: the connection is made in the background, and everything asked
// on it is answered later. Owned by the tray item; main thread.
class StatusNotifierItem : public QObject, public StatusItem {
    Q_OBJECT

public:
    // Of the session bus; empty where there is none.
    explicit StatusNotifierItem(const QString& busAddress);
    ~StatusNotifierItem() override;

    void setPainter(Painter painter) override;
    void setTitle(const QString& title) override;
    void setMenu(const QList<StatusMenuEntry>& menu) override;
    void setClickHandler(ClickHandler handler) override;
    // The first time it is visible, it connects.
    void setVisibility(StatusItemVisibility visibility) override;

    NotifierHosting hosting() const { return m_hosting; }

Q_SIGNALS:
    void hostingChanged();

private Q_SLOTS:
    void hearOwnerChanged(const QDBusMessage& message);
    void hearHostsChanged(const QDBusMessage& message);
    void forgetBus();

private:
    void connectInBackground();
    void leaveBus();
    void useBus(const QDBusConnection& bus);
    void setWatcher(const QString& owner);
    void askForHost();
    void takeName();
    void releaseName();
    void registerItem();
    void setHosting(NotifierHosting hosting);

    QString m_busAddress;
    QString m_connectionName;
    StatusItemVisibility m_visibility = StatusItemVisibility::hidden;
    quint64 m_change = 0; // of the visibility
    NotifierHosting m_hosting = NotifierHosting::unknown;
    std::optional<QDBusConnection> m_bus;
    QString m_watcher;        // the unique name of its owner; empty where there is none
    QString m_registeredWith; // the watcher that knows the item
    bool m_wasConnected = false;
    bool m_hasName = false;
    std::unique_ptr<QObject> m_itemObject;
    std::unique_ptr<QObject> m_menuObject;
    StatusNotifierAdaptor* m_item; // child of its object
    BusMenuAdaptor* m_menu;        // child of its object
    std::unique_ptr<QThread> m_thread;
    ReconnectTimer m_reconnect;
};

} // namespace zelmo
