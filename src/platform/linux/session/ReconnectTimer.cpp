#include "platform/linux/session/ReconnectTimer.h"

namespace zelmo {

ReconnectTimer::ReconnectTimer(std::function<void()> connect, QObject* parent) : QObject(parent) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, this, std::move(connect));
}

void ReconnectTimer::start() {
    m_timer.start(m_next);
    m_next = std::min(2 * m_next, longest);
}

} // namespace zelmo
