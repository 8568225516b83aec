#include "ui/BackgroundItem.h"

#include <QLinearGradient>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

namespace zelmo {

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
    auto* imageNode = static_cast<QSGImageNode*>(node);
    if (!imageNode) {
        imageNode = window()->createImageNode();
        imageNode->setOwnsTexture(true);
        m_stale = true;
    }
    if (m_stale) {
        QImage image((area.size() * window()->effectiveDevicePixelRatio()).toSize(), QImage::Format_RGB32);
        QLinearGradient gradient(QPointF(0, 0), QPointF(image.width(), image.height()));
        for (qsizetype i = 0; i < m_colors.size(); ++i)
            gradient.setColorAt(m_colors.size() < 2 ? 0
                                                    : static_cast<double>(i) / static_cast<double>(m_colors.size() - 1),
                                m_colors[i]);
        QPainter(&image).fillRect(image.rect(), gradient);
        imageNode->setTexture(window()->createTextureFromImage(image, QQuickWindow::TextureIsOpaque));
        imageNode->setRect(area);
        m_stale = false;
    }
    return imageNode;
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
