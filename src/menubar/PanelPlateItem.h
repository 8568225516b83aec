#pragma once

#include "menubar/PanelPicture.h"

#include <QQuickPaintedItem>

namespace zelmo {

// Draws the surface of the panel with its shadow: the panel is as large as the item without the margin on each side.
class PanelPlateItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal margin READ margin WRITE setMargin NOTIFY marginChanged)

public:
    PanelPlateItem();

    qreal margin() const { return m_margin; }
    void setMargin(qreal margin);

    // What the panel covers of the desktop, in pixels; null where it can't be seen.
    void setSurroundings(PanelEdge edge, const QImage& behind);
    PanelEdge edge() const { return m_edge; }
    const QImage& behind() const { return m_behind; }

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void marginChanged();

private:
    qreal m_margin = 0;
    PanelEdge m_edge = PanelEdge::cut;
    QImage m_behind;
};

} // namespace zelmo
