#include "platform/linux/session/LoginSessionListener.h"

#include "platform/linux/session/BusQuestion.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

namespace zelmo {

namespace {

constexpr QLatin1StringView service("org.freedesktop.login1");
constexpr QLatin1StringView managerPath("/org/freedesktop/login1");
constexpr QLatin1StringView managerInterface("org.freedesktop.login1.Manager");
constexpr QLatin1StringView sessionInterface("org.freedesktop.login1.Session");
constexpr QLatin1StringView propertiesInterface("org.freedesktop.DBus.Properties");

void takeFlag(const QVariantMap& properties, const QString& name, bool& flag) {
    const QVariant value = properties.value(name);
    if (value.typeId() == QMetaType::Bool)
        flag = value.toBool();
}

} // namespace

LoginSessionListener::LoginSessionListener(const QDBusConnection& bus)
    : m_bus(bus), m_watcher(service, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
                reset();
                if (!owner.isEmpty())
                    findSession();
            });
    m_bus.connect(service, managerPath, managerInterface, QStringLiteral("PrepareForSleep"), this,
                  SLOT(hearPrepareForSleep(QDBusMessage)));
    findSession();
}

void LoginSessionListener::reset() {
    ++m_news;
    if (!m_session.isEmpty())
        m_bus.disconnect(service, m_session, propertiesInterface, QStringLiteral("PropertiesChanged"), this,
                         SLOT(hearPropertiesChanged(QDBusMessage)));
    m_session.clear();
    const bool wasAway = isAway();
    m_locked = false;
    m_inFront = true;
    m_asleep = false;
    if (wasAway)
        Q_EMIT changed();
}

// The number zero stands for the caller. A program that the user's service manager started belongs to no session; the
// session that it serves is in its environment then.
void LoginSessionListener::findSession() {
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, managerPath, managerInterface, QStringLiteral("GetSessionByPID"));
    question << 0U;
    askBus(m_bus, question, QLatin1StringView("o"), this, [this, news = m_news](const QVariant& answer) {
        if (news != m_news)
            return;
        if (answer.isValid())
            follow(answer);
        else
            findSessionByName();
    });
}

void LoginSessionListener::findSessionByName() {
    const QString name = qEnvironmentVariable("XDG_SESSION_ID");
    if (name.isEmpty())
        return;
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, managerPath, managerInterface, QStringLiteral("GetSession"));
    question << name;
    askBus(m_bus, question, QLatin1StringView("o"), this, [this, news = m_news](const QVariant& answer) {
        if (news == m_news && answer.isValid())
            follow(answer);
    });
}

void LoginSessionListener::follow(const QVariant& session) {
    m_session = session.value<QDBusObjectPath>().path();
    m_bus.connect(service, m_session, propertiesInterface, QStringLiteral("PropertiesChanged"), this,
                  SLOT(hearPropertiesChanged(QDBusMessage)));
    askForProperties();
}

void LoginSessionListener::askForProperties() {
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, m_session, propertiesInterface, QStringLiteral("GetAll"));
    question << QString(sessionInterface);
    askBus(m_bus, question, QLatin1StringView("a{sv}"), this, [this, news = m_news](const QVariant& answer) {
        if (news == m_news && answer.isValid())
            take(qdbus_cast<QVariantMap>(answer));
    });
}

void LoginSessionListener::hearPrepareForSleep(const QDBusMessage& message) {
    if (message.signature() != QLatin1StringView("b"))
        return;
    const bool wasAway = isAway();
    m_asleep = message.arguments().constFirst().toBool();
    if (wasAway != isAway())
        Q_EMIT changed();
}

void LoginSessionListener::hearPropertiesChanged(const QDBusMessage& message) {
    if (message.signature() != QLatin1StringView("sa{sv}as") ||
        message.arguments().constFirst().toString() != sessionInterface)
        return;
    // An answer on its way may be older than this; what it would have told besides is asked for again.
    ++m_news;
    take(qdbus_cast<QVariantMap>(message.arguments().at(1)));
    askForProperties();
}

void LoginSessionListener::take(const QVariantMap& properties) {
    const bool wasAway = isAway();
    takeFlag(properties, QStringLiteral("LockedHint"), m_locked);
    takeFlag(properties, QStringLiteral("Active"), m_inFront);
    if (wasAway != isAway())
        Q_EMIT changed();
}

} // namespace zelmo
