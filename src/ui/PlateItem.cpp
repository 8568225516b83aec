#include "ui/PlateItem.h"

#include "iconart/ContinuousRectangle.h"
#include "ui/PlateCache.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

namespace zelmo {

namespace {

// Shares its texture with all other plates of the same look.
class PlateNode : public QSGNode {
public:
    explicit PlateNode(QQuickWindow& window) : m_image(window.createImageNode()) { appendChildNode(m_image); }

    void show(std::shared_ptr<QSGTexture> texture, const QRectF& area, QSGTexture::Filtering filtering) {
        m_image->setTexture(texture.get());
        m_image->setFiltering(filtering);
        m_image->setRect(area);
        m_texture = std::move(texture);
    }

private:
    QSGImageNode* m_image;
    std::shared_ptr<QSGTexture> m_texture;
};

} // namespace

PlateItem::PlateItem() {
    setFlag(ItemHasContents);
    connect(this, &PlateItem::changed, this, [this] { update(); });
}

PlateStyle PlateItem::style() const {
    return {.radius = m_radius,
            .fill = {m_colors, static_cast<GradientDirection>(m_direction)},
            .stroke = {m_strokeColors, static_cast<GradientDirection>(m_strokeDirection)},
            .strokeWidth = m_strokeWidth,
            .shadow = {.opacity = m_shadowOpacity, .radius = m_shadowRadius, .offset = m_shadowOffset},
            .isMirrored = m_mirrored};
}

bool PlateItem::contains(const QPointF& point) const {
    return continuousRectangle(boundingRect(), m_radius).contains(point);
}

QSGNode* PlateItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    const double scale = window()->effectiveDevicePixelRatio();
    const PlateStyle look = style();
    auto texture = isVisible() ? PlateCache::of(*window()).texture(size(), scale, look) : nullptr;
    if (!texture) {
        delete node;
        return nullptr;
    }
    auto* plate = node ? static_cast<PlateNode*>(node) : new PlateNode(*window());
    const double margin = plateMargin(look, scale) / scale;
    const QSizeF shown = QSizeF(texture->textureSize()) / scale;
    plate->show(std::move(texture), QRectF(QPointF(-margin, -margin), shown),
                smooth() ? QSGTexture::Linear : QSGTexture::Nearest);
    return plate;
}

void PlateItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void PlateItem::itemChange(ItemChange change, const ItemChangeData& data) {
    // On this thread, for the cache is the window's child; drawing may have another.
    if (change == ItemSceneChange && data.window)
        PlateCache::of(*data.window);
    if (change == ItemDevicePixelRatioHasChanged || change == ItemVisibleHasChanged)
        update();
    QQuickItem::itemChange(change, data);
}

} // namespace zelmo
