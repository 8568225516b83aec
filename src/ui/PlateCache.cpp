#include "ui/PlateCache.h"

#include <QQuickWindow>
#include <QSGTexture>

namespace zelmo {

PlateCache::PlateCache(QQuickWindow& window) : QObject(&window), m_window(window), m_pictures(byteLimit) {}

PlateCache& PlateCache::of(QQuickWindow& window) {
    if (auto* cache = window.findChild<PlateCache*>(QString(), Qt::FindDirectChildrenOnly))
        return *cache;
    return *new PlateCache(window);
}

QImage PlateCache::picture(QSizeF size, double scale, const PlateStyle& style) {
    const Key key{size, scale, style};
    if (const QImage* known = m_pictures.object(key))
        return *known;
    QImage picture = paintPlate(size, scale, style);
    m_pictures.insert(key, new QImage(picture), std::max<qsizetype>(picture.sizeInBytes(), 1));
    return picture;
}

std::shared_ptr<QSGTexture> PlateCache::texture(QSizeF size, double scale, const PlateStyle& style) {
    m_textures.removeIf([](const auto& entry) { return entry.value().expired(); });
    const Key key{size, scale, style};
    if (auto shared = m_textures.value(key).lock())
        return shared;
    const QImage image = picture(size, scale, style);
    if (image.isNull())
        return nullptr;
    std::shared_ptr<QSGTexture> texture(m_window.createTextureFromImage(
        image, image.hasAlphaChannel() ? QQuickWindow::TextureHasAlphaChannel : QQuickWindow::TextureIsOpaque));
    m_textures.insert(key, texture);
    return texture;
}

} // namespace zelmo
