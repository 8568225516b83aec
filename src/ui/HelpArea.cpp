#include "ui/HelpArea.h"

#include "ui/WallMetrics.h"

#include <QHoverEvent>

#include <algorithm>

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
    m_entry = event->position();
}

void HelpArea::hoverMoveEvent(QHoverEvent* event) {
    if (event->position() != m_entry && !m_isShown)
        m_timer.start();
}

void HelpArea::hoverLeaveEvent(QHoverEvent*) {
    hide();
}

void HelpArea::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemVisibleHasChanged && !data.boolValue)
        hide();
    QQuickItem::itemChange(change, data);
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
