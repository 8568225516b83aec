#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

namespace zelmo {

// Follows what the login service knows of this process's session: whether it is locked, whether another one is in
// front, and whether the machine goes to sleep. What it does not tell, or tells in another form, speaks for presence.
// Owned by PresenceListener, on its thread.
class LoginSessionListener : public QObject {
    Q_OBJECT

public:
    explicit LoginSessionListener(const QDBusConnection& bus);

    bool isAway() const { return m_locked || !m_inFront || m_asleep; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void hearPrepareForSleep(const QDBusMessage& message);
    void hearPropertiesChanged(const QDBusMessage& message);

private:
    void reset();
    void findSession();
    void findSessionByName();
    void follow(const QVariant& session);
    void askForProperties();
    void take(const QVariantMap& properties);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    QString m_session; // its object path, empty as long as it is not known
    int m_news = 0;    // grows with all that makes an answer to an earlier question old
    bool m_locked = false;
    bool m_inFront = true;
    bool m_asleep = false;
};

} // namespace zelmo
