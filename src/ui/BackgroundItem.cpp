#include "ui/BackgroundItem.h"

#include "iconart/DiagonalGradient.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

namespace zelmo {

namespace {

// Bands that share one texture.
class GradientNode : public QSGNode {
public:
    // `size` is in points.
    GradientNode(QQuickWindow& window, const QList<QColor>& colors, QSizeF size) {
        const double scale = window.effectiveDevicePixelRatio();
        const QSize pixels = (size * scale).toSize();
        const DiagonalGradient gradient(colors, pixels);
        m_texture.reset(window.createTextureFromImage(gradient.band(), QQuickWindow::TextureIsOpaque));
        for (int y = 0; y < pixels.height(); y += DiagonalGradient::bandHeight) {
            const int height = std::min(DiagonalGradient::bandHeight, pixels.height() - y);
            QSGImageNode* band = window.createImageNode();
            band->setTexture(m_texture.get());
            band->setSourceRect(gradient.bandStart(y), 0, pixels.width(), height);
            band->setRect(QRectF(0, y / scale, pixels.width() / scale, height / scale));
            appendChildNode(band);
        }
    }

private:
    std::unique_ptr<QSGTexture> m_texture;
};

} // namespace

BackgroundItem::BackgroundItem() {
    setFlag(ItemHasContents);
}

void BackgroundItem::setColors(const QList<QColor>& colors) {
    if (m_colors == colors)
        return;
    m_colors = colors;
    repaint();
    Q_EMIT colorsChanged();
}

QSGNode* BackgroundItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    const QRectF area = boundingRect();
    if (m_colors.isEmpty() || area.isEmpty()) {
        delete node;
        return nullptr;
    }
    if (node && !m_stale)
        return node;
    m_stale = false;
    delete node;
    return new GradientNode(*window(), m_colors, area.size());
}

void BackgroundItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        repaint();
}

void BackgroundItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged)
        repaint();
    QQuickItem::itemChange(change, data);
}

void BackgroundItem::repaint() {
    m_stale = true;
    update();
}

} // namespace zelmo
