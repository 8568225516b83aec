#include "menubar/PanelPlateItem.h"

#include <QPainter>

namespace zelmo {

PanelPlateItem::PanelPlateItem() {
    connect(this, &PanelPlateItem::marginChanged, this, [this] { update(); });
}

void PanelPlateItem::setMargin(qreal margin) {
    if (margin == m_margin)
        return;
    m_margin = margin;
    Q_EMIT marginChanged();
}

void PanelPlateItem::setSurroundings(PanelEdge edge, const QImage& behind) {
    m_edge = edge;
    m_behind = behind;
    update();
}

void PanelPlateItem::paint(QPainter* painter) {
    const double scale = painter->device()->devicePixelRatioF() * painter->transform().m11();
    const QSizeF panel = size() - 2 * QSizeF(m_margin, m_margin);
    QImage picture = paintPanel({.size = panel, .scale = scale, .behind = m_behind, .edge = m_edge});
    if (picture.isNull())
        return;
    const double outside = panelMargin(m_edge, scale) / scale;
    picture.setDevicePixelRatio(scale);
    painter->drawImage(QPointF(m_margin - outside, m_margin - outside), picture);
}

} // namespace zelmo
