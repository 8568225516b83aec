#include "FakeWatcher.h"

#include <QDBusVariant>

namespace zelmo::test {

namespace {

const QString name = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");

} // namespace

FakeWatcher::FakeWatcher(QDBusConnection bus, const QVariant& hasHost) : m_bus(std::move(bus)), m_hasHost(hasHost) {
    m_bus.registerVirtualObject(path, this);
    if (!m_bus.registerService(name))
        qFatal("there is a watcher already");
}

FakeWatcher::~FakeWatcher() {
    m_bus.unregisterService(name);
    m_bus.unregisterObject(path);
}

void FakeWatcher::tellHost(const QVariant& hasHost, const char* signal) {
    m_hasHost = hasHost;
    m_bus.send(QDBusMessage::createSignal(path, name, QString::fromLatin1(signal)));
}

bool FakeWatcher::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.member() == QLatin1StringView("Get")) {
        ++m_questions;
        connection.send(m_hasHost.isValid() ? message.createReply(m_hasHost)
                                            : message.createErrorReply(QDBusError::UnknownProperty, QString()));
    } else if (message.member() == QLatin1StringView("RegisterStatusNotifierItem")) {
        m_items.append(message.arguments().value(0).toString());
        connection.send(m_registering == Registering::accepted
                            ? message.createReply()
                            : message.createErrorReply(QDBusError::AccessDenied, QString()));
    }
    return true;
}

} // namespace zelmo::test
