#pragma once

#include "ui/IconCache.h"

#include <QPointer>
#include <QQuickItem>

#include <optional>

namespace zelmo {

// Draws one application's icon, with its shadow, in a square as wide as the item; empty until the
// icon is decoded. Asks for the icon only while it is to be seen. One that is scaled is to be smooth.
class AppIconItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zelmo::AppIcon icon READ icon WRITE setIcon NOTIFY iconChanged)
    Q_PROPERTY(zelmo::IconCache* cache READ cache WRITE setCache NOTIFY cacheChanged)

public:
    AppIconItem();
    ~AppIconItem() override;

    const AppIcon& icon() const { return m_icon; }
    void setIcon(const AppIcon& icon);
    IconCache* cache() const { return m_cache; }
    void setCache(IconCache* cache);

Q_SIGNALS:
    void iconChanged();
    void cacheChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void componentComplete() override;

private:
    void fetch();
    void stopWaiting();
    void receive(const IconRequest& request);

    AppIcon m_icon;
    QPointer<IconCache> m_cache;
    std::optional<IconRequest> m_awaited;
    QImage m_picture;
    double m_scale = 1;
    bool m_stale = false;
};

} // namespace zelmo
