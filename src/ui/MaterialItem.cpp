#include "ui/MaterialItem.h"

#include "iconart/ContinuousRectangle.h"
#include "iconart/Plate.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

#include <algorithm>
#include <utility>

namespace zelmo {

namespace {

// The shadow by itself: it stays as it is while the desktop behind changes.
class MaterialNode : public QSGNode {
public:
    explicit MaterialNode(QQuickWindow& window) : m_window(window) {}

    // `margin` is in pixels, of which a point has `scale`.
    void showShadow(const QImage& picture, int margin, double scale) { show(m_shadow, picture, margin, scale); }
    // After the shadow, which lies below it.
    void showSurface(const QImage& picture, double scale) { show(m_surface, picture, 0, scale); }

private:
    void show(QSGImageNode*& image, const QImage& picture, int margin, double scale) {
        if (!image) {
            image = m_window.createImageNode();
            image->setOwnsTexture(true);
            appendChildNode(image);
        }
        image->setTexture(m_window.createTextureFromImage(picture, QQuickWindow::TextureHasAlphaChannel));
        image->setRect(QRectF(QPointF(-margin, -margin) / scale, QSizeF(picture.size()) / scale));
    }

    QQuickWindow& m_window;
    QSGImageNode* m_shadow = nullptr;
    QSGImageNode* m_surface = nullptr;
};

} // namespace

MaterialItem::MaterialItem() {
    setFlag(ItemHasContents);
    connect(this, &MaterialItem::changed, this, &MaterialItem::noteLook);
}

void MaterialItem::setBackground(BackgroundItem* background) {
    if (m_background == background)
        return;
    if (m_background)
        m_background->disconnect(this);
    m_background = background;
    if (m_background)
        connect(m_background, &BackgroundItem::contentChanged, this, &MaterialItem::noteBackground);
    Q_EMIT changed();
}

QSGNode* MaterialItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    if (!m_background || boundingRect().isEmpty()) {
        delete node;
        m_shadowIsStale = true;
        m_surfaceIsStale = true;
        return nullptr;
    }
    auto* material = node ? static_cast<MaterialNode*>(node) : new MaterialNode(*window());
    const double scale = window()->effectiveDevicePixelRatio();
    const QSize pixels = (size() * scale).toSize();
    if (std::exchange(m_shadowIsStale, false)) {
        const ShadowStyle shadow{
            .opacity = m_shadowOpacity, .radius = m_shadowRadius * scale, .offset = m_shadowOffset * scale};
        material->showShadow(plateShadow(pixels, m_radius * scale, shadow), shadowMargin(shadow), scale);
    }
    if (std::exchange(m_surfaceIsStale, false))
        material->showSurface(surface(pixels, scale), scale);
    return material;
}

QImage MaterialItem::surface(QSize pixels, double scale) const {
    const QRect area((mapToItem(m_background, QPointF()) * scale).toPoint(), pixels);
    QImage picture = m_background->throughMaterialAt(area, scale);
    if (!picture.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied))
        return {};
    if (picture.size() != pixels)
        picture = picture.copy(QRect({std::min(0, area.x()), std::min(0, area.y())}, pixels));
    // What lies outside of the corners.
    const QRectF whole({0, 0}, QSizeF(pixels));
    QPainterPath outside = continuousRectangle(whole, m_radius * scale);
    outside.addRect(whole);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outside, Qt::black);
    return picture;
}

void MaterialItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        noteLook();
    else if (newGeometry != oldGeometry)
        noteBackground();
}

void MaterialItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged)
        noteLook();
    QQuickItem::itemChange(change, data);
}

void MaterialItem::noteLook() {
    m_shadowIsStale = true;
    noteBackground();
}

void MaterialItem::noteBackground() {
    m_surfaceIsStale = true;
    update();
}

} // namespace zelmo
