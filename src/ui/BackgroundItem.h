#pragma once

#include <QColor>
#include <QQuickItem>

namespace zelmo {

// Fills itself with a gradient from its top-leading to its bottom-trailing corner.
class BackgroundItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<QColor> colors READ colors WRITE setColors NOTIFY colorsChanged)

public:
    BackgroundItem();

    const QList<QColor>& colors() const { return m_colors; }
    void setColors(const QList<QColor>& colors);

Q_SIGNALS:
    void colorsChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void repaint();

    QList<QColor> m_colors;
    bool m_stale = true;
};

} // namespace zelmo
