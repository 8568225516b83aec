#include "ui/AppIconItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>

namespace zelmo {

AppIconItem::AppIconItem() {
    setFlag(ItemHasContents);
    setSmooth(false);
}

AppIconItem::~AppIconItem() {
    stopWaiting();
}

void AppIconItem::setIcon(const AppIcon& icon) {
    if (m_icon == icon)
        return;
    m_icon = icon;
    fetch();
    Q_EMIT iconChanged();
}

void AppIconItem::setCache(IconCache* cache) {
    if (m_cache == cache)
        return;
    stopWaiting();
    if (m_cache)
        m_cache->disconnect(this);
    m_cache = cache;
    if (m_cache)
        connect(m_cache, &IconCache::available, this, &AppIconItem::receive);
    fetch();
    Q_EMIT cacheChanged();
}

QSGNode* AppIconItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    if (m_picture.isNull()) {
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
        imageNode->setTexture(window()->createTextureFromImage(m_picture, QQuickWindow::TextureHasAlphaChannel));
        const double margin = IconCache::margin(m_scale) / m_scale;
        imageNode->setRect(
            QRectF(QPointF(-margin, -margin), QSizeF(m_picture.width() / m_scale, m_picture.height() / m_scale)));
        m_stale = false;
    }
    imageNode->setFiltering(smooth() ? QSGTexture::Linear : QSGTexture::Nearest);
    return imageNode;
}

void AppIconItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        fetch();
}

void AppIconItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        fetch();
}

void AppIconItem::componentComplete() {
    QQuickItem::componentComplete();
    fetch();
}

void AppIconItem::fetch() {
    if (!isComponentComplete())
        return;
    stopWaiting();
    m_picture = {};
    m_stale = true;
    update();
    const int points = static_cast<int>(std::lround(width()));
    if (!m_cache || !window() || points <= 0)
        return;
    m_scale = window()->effectiveDevicePixelRatio();
    const IconRequest request{.icon = m_icon, .points = points, .scale = m_scale};
    m_picture = m_cache->find(request);
    if (m_picture.isNull()) {
        m_awaited = request;
        m_cache->request(request);
    }
}

void AppIconItem::stopWaiting() {
    if (m_awaited && m_cache)
        m_cache->cancel(*m_awaited);
    m_awaited.reset();
}

void AppIconItem::receive(const IconRequest& request) {
    if (m_awaited != request)
        return;
    m_awaited.reset();
    m_picture = m_cache->find(request);
    m_stale = true;
    update();
}

} // namespace zelmo
