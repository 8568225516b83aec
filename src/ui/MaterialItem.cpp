#include "ui/MaterialItem.h"

#include "iconart/ContinuousRectangle.h"
#include "iconart/Material.h"
#include "iconart/Plate.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

#include <cmath>

namespace zelmo {

MaterialItem::MaterialItem() {
    setFlag(ItemHasContents);
    connect(this, &MaterialItem::changed, this, &MaterialItem::noteChange);
}

void MaterialItem::setBackground(BackgroundItem* background) {
    if (m_background == background)
        return;
    if (m_background)
        m_background->disconnect(this);
    m_background = background;
    if (m_background)
        connect(m_background, &BackgroundItem::contentChanged, this, &MaterialItem::noteChange);
    Q_EMIT changed();
}

QSGNode* MaterialItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    if (!m_background || boundingRect().isEmpty()) {
        delete node;
        return nullptr;
    }
    auto* image = static_cast<QSGImageNode*>(node);
    if (image && !m_stale)
        return image;
    m_stale = false;
    const double scale = window()->effectiveDevicePixelRatio();
    const QSize pixels = (size() * scale).toSize();
    const ShadowStyle shadow{
        .opacity = m_shadowOpacity, .radius = m_shadowRadius * scale, .offset = m_shadowOffset * scale};
    QImage picture = plateShadow(pixels, m_radius * scale, shadow);
    const int margin = shadowMargin(shadow);
    {
        QPainter painter(&picture);
        painter.translate(margin, margin);
        paintSurface(painter, pixels, scale);
    }
    if (!image) {
        image = window()->createImageNode();
        image->setOwnsTexture(true);
    }
    image->setTexture(window()->createTextureFromImage(picture, QQuickWindow::TextureHasAlphaChannel));
    image->setRect(QRectF(QPointF(-margin, -margin) / scale, QSizeF(picture.size()) / scale));
    return image;
}

void MaterialItem::paintSurface(QPainter& painter, QSize pixels, double scale) const {
    MaterialStyle style = MaterialStyle::ultraThin();
    // A gradient over the whole wall looks the same blurred.
    if (!m_background->showsDesktop())
        style.blurRadius = 0;
    const int reach = static_cast<int>(std::ceil(style.blurRadius * scale));
    const QPoint place = (mapToItem(m_background, QPointF()) * scale).toPoint();
    const QRect around = QRect(place, pixels).adjusted(-reach, -reach, reach, reach);
    const QRect seen = around & QRect(QPoint(), (m_background->size() * scale).toSize());
    QBrush brush(throughMaterial(m_background->part(around, scale), scale, style));
    brush.setTransform(QTransform::fromTranslate(seen.x() - place.x(), seen.y() - place.y()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRectangle(QRectF(QPointF(), QSizeF(pixels)), m_radius * scale), brush);
}

void MaterialItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry != oldGeometry)
        noteChange();
}

void MaterialItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged)
        noteChange();
    QQuickItem::itemChange(change, data);
}

void MaterialItem::noteChange() {
    m_stale = true;
    update();
}

} // namespace zelmo
