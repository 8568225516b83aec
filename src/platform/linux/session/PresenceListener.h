#pragma once

#include "platform/linux/session/BusAddresses.h"
#include "platform/linux/session/ReconnectTimer.h"

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
    explicit PresenceListener(const BusAddresses& addresses);
    ~PresenceListener() override;

    void start();

Q_SIGNALS:
    void presenceChanged(bool present);

private:
    // A bus that is listened to over a connection of our own.
    struct Bus {
        QString address;
        QString connectionName;
        ReconnectTimer comesAgain;
    };

    // Nothing when the bus is not there. `lost` is called when it goes away.
    std::optional<QDBusConnection> connectTo(Bus& bus, const char* lost);
    void listenToSession();
    void listenToSystem();
    void judge();

private Q_SLOTS:
    void forgetSession();
    void forgetSystem();

private:
    Bus m_session;
    Bus m_system;
    bool m_present = true;
    std::vector<std::unique_ptr<ScreenSaverListener>> m_screenSavers;
    std::unique_ptr<LoginSessionListener> m_loginSession;
};

} // namespace zelmo
