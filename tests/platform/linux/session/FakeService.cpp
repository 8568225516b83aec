#include "FakeService.h"

#include <QDBusConnectionInterface>

namespace zelmo::test {

FakeService::FakeService(QDBusConnection bus, const QString& name, Unknown unknown)
    : m_bus(std::move(bus)), m_name(name), m_unknown(unknown) {
    // One object may stand at the root of a connection; the services are on it one after the other or share it.
    const QString root = QStringLiteral("/");
    m_bus.registerVirtualObject(root, this, QDBusConnection::SubPath);
    if (!m_bus.registerService(name))
        qFatal("the name %s is taken", qPrintable(name));
}

FakeService::~FakeService() {
    m_bus.unregisterService(m_name);
    m_bus.unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
}

void FakeService::send(const QString& path, const QString& interface, const QString& name,
                       const QVariantList& values) const {
    QDBusMessage message = QDBusMessage::createSignal(path, interface, name);
    message.setArguments(values);
    m_bus.send(message);
}

void FakeService::answerLast(const QString& key, const QVariant& value) const {
    m_bus.send(m_questions.value(key).createReply(value));
}

bool FakeService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    const QString key = message.path() + u':' + message.member();
    ++m_calls[key];
    m_questions[key] = message;
    const auto answer = m_answers.constFind(key);
    if (answer != m_answers.constEnd())
        connection.send(message.createReply(*answer));
    else if (m_unknown == Unknown::fails)
        connection.send(message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("not here")));
    else
        message.setDelayedReply(true);
    return true;
}

} // namespace zelmo::test
