#include "platform/linux/session/PresenceListener.h"

#include "platform/linux/session/LoginSessionListener.h"
#include "platform/linux/session/ScreenSaverListener.h"

#include <atomic>

namespace zelmo {

PresenceListener::PresenceListener(const BusAddresses& addresses)
    : m_session{addresses.session, {}, ReconnectTimer([this] { listenToSession(); }, this)},
      m_system{addresses.system, {}, ReconnectTimer([this] { listenToSystem(); }, this)} {}

PresenceListener::~PresenceListener() {
    m_screenSavers.clear();
    m_loginSession.reset();
    for (const Bus* bus : {&m_session, &m_system})
        QDBusConnection::disconnectFromBus(bus->connectionName);
}

void PresenceListener::start() {
    listenToSession();
    listenToSystem();
}

void PresenceListener::listenToSession() {
    const auto connection = connectTo(m_session, SLOT(forgetSession()));
    if (!connection)
        return;
    for (const ScreenSaverService& service : screenSaverServices()) {
        m_screenSavers.push_back(std::make_unique<ScreenSaverListener>(*connection, service));
        connect(m_screenSavers.back().get(), &ScreenSaverListener::changed, this, &PresenceListener::judge);
    }
}

void PresenceListener::listenToSystem() {
    const auto connection = connectTo(m_system, SLOT(forgetSystem()));
    if (!connection)
        return;
    m_loginSession = std::make_unique<LoginSessionListener>(*connection);
    connect(m_loginSession.get(), &LoginSessionListener::changed, this, &PresenceListener::judge);
}

std::optional<QDBusConnection> PresenceListener::connectTo(Bus& bus, const char* lost) {
    static std::atomic<int> count = 0;
    if (bus.address.isEmpty())
        return std::nullopt;
    const bool wasThere = !bus.connectionName.isEmpty();
    if (wasThere)
        QDBusConnection::disconnectFromBus(bus.connectionName);
    const QString name = QStringLiteral("zelmo-presence-%1").arg(++count);
    QDBusConnection connection = QDBusConnection::connectToBus(bus.address, name);
    if (!connection.isConnected()) {
        QDBusConnection::disconnectFromBus(name);
        if (wasThere)
            bus.comesAgain.start();
        return std::nullopt;
    }
    bus.connectionName = name;
    bus.comesAgain.reset();
    connection.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                       QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this, lost);
    return connection;
}

void PresenceListener::judge() {
    const bool screenSaved = std::any_of(m_screenSavers.cbegin(), m_screenSavers.cend(),
                                         [](const auto& screenSaver) { return screenSaver->isActive(); });
    const bool present = !screenSaved && !(m_loginSession && m_loginSession->isAway());
    if (present == m_present)
        return;
    m_present = present;
    Q_EMIT presenceChanged(present);
}

void PresenceListener::forgetSession() {
    m_screenSavers.clear();
    judge();
    m_session.comesAgain.start();
}

void PresenceListener::forgetSystem() {
    m_loginSession.reset();
    judge();
    m_system.comesAgain.start();
}

} // namespace zelmo
