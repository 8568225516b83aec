#include "platform/linux/session/PresenceListener.h"

#include "platform/linux/session/LoginSessionListener.h"
#include "platform/linux/session/ScreenSaverListener.h"

#include <atomic>

namespace zelmo {

PresenceListener::PresenceListener(BusAddresses addresses) : m_addresses(std::move(addresses)) {}

PresenceListener::~PresenceListener() {
    m_screenSavers.clear();
    m_loginSession.reset();
    for (const QString& name : m_connectionNames)
        QDBusConnection::disconnectFromBus(name);
}

void PresenceListener::start() {
    if (const auto bus = connectTo(m_addresses.session, SLOT(forgetSession()))) {
        for (const ScreenSaverService& service : screenSaverServices()) {
            m_screenSavers.push_back(std::make_unique<ScreenSaverListener>(*bus, service));
            connect(m_screenSavers.back().get(), &ScreenSaverListener::changed, this, &PresenceListener::judge);
        }
    }
    if (const auto bus = connectTo(m_addresses.system, SLOT(forgetSystem()))) {
        m_loginSession = std::make_unique<LoginSessionListener>(*bus);
        connect(m_loginSession.get(), &LoginSessionListener::changed, this, &PresenceListener::judge);
    }
}

std::optional<QDBusConnection> PresenceListener::connectTo(const QString& address, const char* lost) {
    static std::atomic<int> count = 0;
    if (address.isEmpty())
        return std::nullopt;
    const QString name = QStringLiteral("zelmo-presence-%1").arg(++count);
    QDBusConnection connection = QDBusConnection::connectToBus(address, name);
    m_connectionNames.append(name);
    if (!connection.isConnected())
        return std::nullopt;
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
}

void PresenceListener::forgetSystem() {
    m_loginSession.reset();
    judge();
}

} // namespace zelmo
