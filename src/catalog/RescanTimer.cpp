#include "catalog/RescanTimer.h"

namespace zelmo {

RescanTimer::RescanTimer(std::function<void()> rescan) : m_rescan(std::move(rescan)) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
        m_burst.invalidate();
        m_rescan();
    });
}

void RescanTimer::noteChange() {
    if (!m_burst.isValid())
        m_burst.start();
    const std::chrono::milliseconds left = longestWait - std::chrono::milliseconds(m_burst.elapsed());
    m_timer.start(std::clamp(left, std::chrono::milliseconds::zero(), quietTime));
}

} // namespace zelmo
