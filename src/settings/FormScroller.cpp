#include "settings/FormScroller.h"

#include <algorithm>

namespace zelmo {

void FormScroller::setFocusItem(QQuickItem* item) {
    if (item == m_focusItem)
        return;
    m_focusItem = item;
    if (item && m_area)
        reveal(*item);
    Q_EMIT focusItemChanged();
}

void FormScroller::reveal(const QQuickItem& item) {
    const auto* content = m_area->property("contentItem").value<QQuickItem*>();
    if (!content || !content->isAncestorOf(&item))
        return;
    const QRectF place =
        item.mapRectToItem(content, QRectF(0, 0, item.width(), item.height())).adjusted(0, -m_margin, 0, m_margin);
    const qreal top = m_area->property("contentY").toReal();
    if (place.top() < top)
        moveTo(place.top());
    else if (place.bottom() > top + m_area->height())
        moveTo(std::min(place.top(), place.bottom() - m_area->height()));
}

void FormScroller::moveTo(qreal top) {
    const qreal lowest = std::max(0.0, m_area->property("contentHeight").toReal() - m_area->height());
    m_area->setProperty("contentY", std::clamp(top, 0.0, lowest));
}

bool FormScroller::handle(int key) {
    if (!m_area)
        return false;
    const qreal top = m_area->property("contentY").toReal();
    // A line of the last page stays in sight.
    const qreal page = m_area->height() - 2 * m_margin;
    switch (key) {
    case Qt::Key_PageUp:
        moveTo(top - page);
        return true;
    case Qt::Key_PageDown:
        moveTo(top + page);
        return true;
    case Qt::Key_Home:
        moveTo(0);
        return true;
    case Qt::Key_End:
        moveTo(m_area->property("contentHeight").toReal());
        return true;
    default:
        return false;
    }
}

} // namespace zelmo
