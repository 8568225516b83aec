#include "platform/linux/session/DBusSessionPresence.h"

#include "platform/linux/session/PresenceListener.h"

#include <QThread>

namespace zelmo {

DBusSessionPresence::DBusSessionPresence(BusAddresses addresses) : m_addresses(std::move(addresses)) {}

DBusSessionPresence::~DBusSessionPresence() {
    if (!m_thread)
        return;
    m_thread->quit();
    m_thread->wait();
}

void DBusSessionPresence::start() {
    if (m_thread)
        return;
    m_receiver = std::make_unique<QObject>();
    m_thread = std::make_unique<QThread>();
    m_thread->setObjectName(QStringLiteral("presence"));
    auto* listener = new PresenceListener(m_addresses);
    listener->moveToThread(m_thread.get());
    QObject::connect(m_thread.get(), &QThread::started, listener, &PresenceListener::start);
    QObject::connect(m_thread.get(), &QThread::finished, listener, &QObject::deleteLater);
    QObject::connect(listener, &PresenceListener::presenceChanged, m_receiver.get(),
                     [this](bool present) { take(present); });
    m_thread->start(QThread::LowPriority);
}

void DBusSessionPresence::take(bool present) {
    if (present == m_present)
        return;
    m_present = present;
    if (m_handler)
        m_handler();
}

} // namespace zelmo
