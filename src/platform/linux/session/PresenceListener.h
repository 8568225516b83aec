#pragma once

#include "platform/linux/session/BusAddresses.h"

#include <QDBusConnection>
#include <QObject>

#include <memory>
#include <optional>
#include <vector>

namespace zelmo {

class LoginSessionListener;
class ScreenSaverListener;

// Gathers from both buses what speaks against a person's presence. Owned by DBusSessionPresence, whose thread it
// lives and is destroyed on; it may wait for a bus there.
class PresenceListener : public QObject {
    Q_OBJECT

public:
    explicit PresenceListener(BusAddresses addresses);
    ~PresenceListener() override;

    void start();

Q_SIGNALS:
    void presenceChanged(bool present);

private:
    // A connection of our own; nothing when the bus is not there. `lost` is called when the bus goes away.
    std::optional<QDBusConnection> connectTo(const QString& address, const char* lost);
    void judge();

private Q_SLOTS:
    void forgetSession();
    void forgetSystem();

private:
    BusAddresses m_addresses;
    bool m_present = true;
    QList<QString> m_connectionNames;
    std::vector<std::unique_ptr<ScreenSaverListener>> m_screenSavers;
    std::unique_ptr<LoginSessionListener> m_loginSession;
};

} // namespace zelmo
