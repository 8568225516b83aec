#pragma once

#include "ui/BackgroundItem.h"

#include <QPointer>
#include <QQuickItem>

namespace zelmo {

// A translucent surface with continuous corners and a shadow, through which the background below it shows blurred.
class MaterialItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zelmo::BackgroundItem* background READ background WRITE setBackground NOTIFY changed)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed)
    Q_PROPERTY(qreal shadowOpacity MEMBER m_shadowOpacity NOTIFY changed)
    Q_PROPERTY(qreal shadowRadius MEMBER m_shadowRadius NOTIFY changed)
    Q_PROPERTY(qreal shadowOffset MEMBER m_shadowOffset NOTIFY changed)

public:
    MaterialItem();

    BackgroundItem* background() const { return m_background; }
    void setBackground(BackgroundItem* background);

Q_SIGNALS:
    void changed();

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void noteChange();
    void paintSurface(QPainter& painter, QSize pixels, double scale) const;

    QPointer<BackgroundItem> m_background;
    qreal m_radius = 0;
    qreal m_shadowOpacity = 0;
    qreal m_shadowRadius = 0;
    qreal m_shadowOffset = 0;
    bool m_stale = true;
};

} // namespace zelmo
