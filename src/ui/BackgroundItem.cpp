#include "ui/BackgroundItem.h"

#include "iconart/DiagonalGradient.h"
#include "iconart/Material.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

namespace zelmo {

namespace {

// Whether something of that size hides all of what it lies on, but for a pixel by which a size in points may be rounded
// up beyond its screen.
bool covers(QSize size, QSize all) {
    return size.width() + 1 >= all.width() && size.height() + 1 >= all.height();
}

// The screen has become larger since the desktop was seen, which the wall hides now. As blurred as it is, nobody sees
// that it is stretched.
QImage stretched(const QImage& picture, QSize size) {
    return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Bands that share one texture.
class GradientNode : public QSGNode {
public:
    // `size` is in points.
    GradientNode(QQuickWindow& window, const QList<QColor>& colors, QSizeF size, bool mirrored) {
        const double scale = window.effectiveDevicePixelRatio();
        const QSize pixels = (size * scale).toSize();
        const DiagonalGradient gradient(colors, pixels);
        // Not every renderer mirrors a part of a texture alone.
        const QImage picture = mirrored ? gradient.band().mirrored(true, false) : gradient.band();
        m_texture.reset(window.createTextureFromImage(picture, QQuickWindow::TextureIsOpaque));
        for (int y = 0; y < pixels.height(); y += DiagonalGradient::bandHeight) {
            const int height = std::min(DiagonalGradient::bandHeight, pixels.height() - y);
            QSGImageNode* band = window.createImageNode();
            band->setTexture(m_texture.get());
            const int start = gradient.bandStart(y);
            band->setSourceRect(mirrored ? picture.width() - start - pixels.width() : start, 0, pixels.width(), height);
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
    noteChange();
}

void BackgroundItem::setBackdrop(DesktopBackdrop* backdrop) {
    if (m_backdrop == backdrop)
        return;
    if (m_backdrop)
        m_backdrop->disconnect(this);
    m_backdrop = backdrop;
    if (m_backdrop)
        connect(m_backdrop, &DesktopBackdrop::changed, this, &BackgroundItem::noteChange);
    noteChange();
}

void BackgroundItem::setMirrored(bool mirrored) {
    if (m_mirrored == mirrored)
        return;
    m_mirrored = mirrored;
    noteChange();
}

bool BackgroundItem::showsDesktop() const {
    return m_backdrop && !m_backdrop->isNull();
}

QImage BackgroundItem::throughMaterialAt(const QRect& pixels, double scale) const {
    const QSize whole = (size() * scale).toSize();
    const QRect area = pixels & QRect(QPoint(), whole);
    if (area.isEmpty())
        return {};
    if (showsDesktop()) {
        const SmallPicture& seen = m_backdrop->throughMaterialAgain();
        if (covers(seen.size, whole))
            return seen.part(area & QRect(QPoint(), seen.size));
        const QTransform toSeen = QTransform::fromScale(double(seen.size.width()) / whole.width(),
                                                        double(seen.size.height()) / whole.height());
        return stretched(seen.part(toSeen.mapRect(area) & QRect(QPoint(), seen.size)), area.size());
    }
    // A gradient over the whole wall looks the same blurred.
    MaterialStyle style = MaterialStyle::ultraThin();
    style.blurRadius = 0;
    return throughMaterial(gradientPart(area, whole), scale, style);
}

QImage BackgroundItem::gradientPart(const QRect& pixels, QSize whole) const {
    if (!m_mirrored)
        return DiagonalGradient(m_colors, whole).part(pixels);
    const QRect reflected(whole.width() - pixels.right() - 1, pixels.top(), pixels.width(), pixels.height());
    return DiagonalGradient(m_colors, whole).part(reflected).mirrored(true, false);
}

QSGNode* BackgroundItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    if ((m_colors.isEmpty() && !showsDesktop()) || boundingRect().isEmpty()) {
        delete node;
        return nullptr;
    }
    if (node && !m_stale)
        return node;
    m_stale = false;
    delete node;
    return newNode();
}

QSGNode* BackgroundItem::newNode() const {
    if (!showsDesktop())
        return new GradientNode(*window(), m_colors, size(), m_mirrored);
    QSGImageNode* image = window()->createImageNode();
    QImage picture = m_backdrop->picture();
    if (const QSize whole = (size() * m_backdrop->scale()).toSize(); !covers(picture.size(), whole))
        picture = stretched(picture, whole);
    image->setOwnsTexture(true);
    image->setTexture(window()->createTextureFromImage(picture, QQuickWindow::TextureIsOpaque));
    image->setRect(QRectF(QPointF(), QSizeF(picture.size()) / m_backdrop->scale()));
    return image;
}

void BackgroundItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        noteChange();
}

void BackgroundItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged)
        noteChange();
    QQuickItem::itemChange(change, data);
}

void BackgroundItem::noteChange() {
    m_stale = true;
    update();
    Q_EMIT contentChanged();
}

} // namespace zelmo
