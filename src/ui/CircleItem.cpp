#include "ui/CircleItem.h"

#include <QPainter>

namespace zelmo {

CircleItem::CircleItem() {
    for (const auto change :
         {&CircleItem::startColorChanged, &CircleItem::endColorChanged, &CircleItem::outlineColorChanged})
        connect(this, change, this, [this] { update(); });
}

void CircleItem::paint(QPainter* painter) {
    constexpr double outlineWidth = 1;
    const QRectF area = boundingRect();
    // Of a diagonal, the circle covers what lies between these.
    constexpr double inset = 0.5 - 0.353553; // half the side less half the diameter over the root of 2
    const QPointF corner(inset * area.width(), inset * area.height());
    QLinearGradient gradient(area.topLeft() + corner, area.bottomRight() - corner);
    gradient.setColorAt(0, m_startColor);
    gradient.setColorAt(1, m_endColor);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(gradient);
    painter->drawEllipse(area);
    if (m_outlineColor.alpha() == 0)
        return;
    constexpr double half = outlineWidth / 2;
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(m_outlineColor, outlineWidth));
    painter->drawEllipse(area.adjusted(half, half, -half, -half));
}

} // namespace zelmo
