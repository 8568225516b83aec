#pragma once

#include "iconart/Plate.h"

#include <QQuickItem>

namespace zelmo {

// A surface of the interface as large as the item; its shadow reaches beyond. Looks the same on every renderer.
class PlateItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed)
    Q_PROPERTY(QList<QColor> colors MEMBER m_colors NOTIFY changed)
    Q_PROPERTY(Direction direction MEMBER m_direction NOTIFY changed)
    Q_PROPERTY(QList<QColor> strokeColors MEMBER m_strokeColors NOTIFY changed)
    Q_PROPERTY(Direction strokeDirection MEMBER m_strokeDirection NOTIFY changed)
    Q_PROPERTY(qreal strokeWidth MEMBER m_strokeWidth NOTIFY changed)
    Q_PROPERTY(qreal shadowOpacity MEMBER m_shadowOpacity NOTIFY changed)
    Q_PROPERTY(qreal shadowRadius MEMBER m_shadowRadius NOTIFY changed)
    Q_PROPERTY(qreal shadowOffset MEMBER m_shadowOffset NOTIFY changed)
    // Gradients begin at the right, as lines do in right-to-left scripts.
    Q_PROPERTY(bool mirrored MEMBER m_mirrored NOTIFY changed)

public:
    enum Direction { Diagonal, Down, Across };
    Q_ENUM(Direction)

    PlateItem();

    PlateStyle style() const;

    // Within the corners.
    bool contains(const QPointF& point) const override;

Q_SIGNALS:
    void changed();

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    qreal m_radius = 0;
    QList<QColor> m_colors;
    Direction m_direction = Diagonal;
    QList<QColor> m_strokeColors;
    Direction m_strokeDirection = Diagonal;
    qreal m_strokeWidth = 1;
    qreal m_shadowOpacity = 0;
    qreal m_shadowRadius = 0;
    qreal m_shadowOffset = 0;
    bool m_mirrored = false;
};

} // namespace zelmo
