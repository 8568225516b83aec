#pragma once

#include "iconart/Plate.h"

#include <QCache>
#include <QHash>
#include <QObject>

#include <memory>

class QQuickWindow;
class QSGTexture;

namespace zelmo {

// Keeps the pictures of plates by size, scale and style, the ones that were used last, up to a limit, and one texture
// for all items that show the same picture. One for each window, which owns it; used only while the scene is
// synchronized, when no other thread runs.
class PlateCache : public QObject {
    Q_OBJECT

public:
    static constexpr qsizetype byteLimit = 16 * 1024 * 1024;

    // Made when the window has none yet.
    static PlateCache& of(QQuickWindow& window);

    // Null when there is nothing to see.
    QImage picture(QSizeF size, double scale, const PlateStyle& style);
    std::shared_ptr<QSGTexture> texture(QSizeF size, double scale, const PlateStyle& style);

    qsizetype bytes() const { return m_pictures.totalCost(); }

private:
    struct Key {
        QSizeF size;
        double scale;
        PlateStyle style;

        friend bool operator==(const Key&, const Key&) = default;
        friend std::size_t qHash(const Key& key, std::size_t seed) {
            return qHashMulti(seed, key.size.width(), key.size.height(), key.scale, key.style);
        }
    };

    explicit PlateCache(QQuickWindow& window);

    QQuickWindow& m_window;
    QCache<Key, QImage> m_pictures;
    QHash<Key, std::weak_ptr<QSGTexture>> m_textures;
};

} // namespace zelmo
