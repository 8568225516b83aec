#include "ui/HelpArea.h"

#include "ui/WallMetrics.h"

#include <QHoverEvent>
#include <QQuickWindow>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelmo {

HelpArea::HelpArea() {
    setAcceptHoverEvents(true);
    m_timer.setSingleShot(true);
    m_timer.setInterval(WallMetrics::tipDelay());
    connect(&m_timer, &QTimer::timeout, this, &HelpArea::show);
}

HelpArea::~HelpArea() {
    hide();
}

void HelpArea::setText(const QString& text) {
    if (m_text == text)
        return;
    m_text = text;
    if (m_isShown)
        show();
    Q_EMIT textChanged();
}

void HelpArea::setTip(QQuickItem* tip) {
    if (m_tip == tip)
        return;
    hide();
    m_tip = tip;
    Q_EMIT tipChanged();
}

void HelpArea::hoverEnterEvent(QHoverEvent* event) {
    m_pointer = event->position();
}

void HelpArea::hoverMoveEvent(QHoverEvent* event) {
    // Every picture of the window, such as of the blinking cursor, comes with one of these for a pointer at rest.
    const auto before = std::exchange(m_pointer, event->position());
    if (before && before != event->position() && !m_isShown)
        m_timer.start();
}

void HelpArea::hoverLeaveEvent(QHoverEvent*) {
    hide();
}

void HelpArea::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemVisibleHasChanged && !data.boolValue)
        hide();
    if (change == ItemSceneChange) {
        disconnect(m_windowConnection);
        if (data.window)
            m_windowConnection = connect(data.window, &QWindow::visibleChanged, this, &HelpArea::startAnew);
    }
    QQuickItem::itemChange(change, data);
}

// A window that goes away does not always tell that the pointer is no longer in it.
void HelpArea::startAnew() {
    hide();
    m_pointer.reset();
}

// Below the area, centred on it where there is room.
void HelpArea::show() {
    hide();
    if (!m_tip || !m_tip->parentItem() || m_text.isEmpty())
        return;
    m_isShown = true;
    m_tip->setProperty("text", m_text);
    const QQuickItem& around = *m_tip->parentItem();
    const QPointF below = mapToItem(&around, QPointF(width() / 2, height() + WallMetrics::tipGap()));
    const qreal rightmost = std::max<qreal>(0, around.width() - m_tip->width());
    m_tip->setPosition({std::round(std::clamp<qreal>(below.x() - m_tip->width() / 2, 0, rightmost)), below.y()});
    m_tip->setVisible(true);
}

void HelpArea::hide() {
    m_timer.stop();
    if (m_isShown && m_tip)
        m_tip->setVisible(false);
    m_isShown = false;
}

} // namespace zelmo
