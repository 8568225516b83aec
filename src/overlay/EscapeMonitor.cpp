#include "overlay/EscapeMonitor.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

namespace zelmo {

EscapeMonitor::EscapeMonitor(std::function<void()> escaped) : m_escaped(std::move(escaped)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool EscapeMonitor::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !qobject_cast<QWindow*>(watched) || QGuiApplication::modalWindow() ||
        static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
        return false;
    // It ends this monitor.
    const auto escaped = m_escaped;
    escaped();
    return true;
}

} // namespace zelmo
