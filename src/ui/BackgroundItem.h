#pragma once

#include "ui/DesktopBackdrop.h"

#include <QColor>
#include <QPointer>
#include <QQuickItem>

namespace zelmo {

// Fills itself with a gradient from its top-leading to its bottom-trailing corner or, when it has one that can be
// seen, with the desktop behind the wall.
class BackgroundItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<QColor> colors READ colors WRITE setColors NOTIFY contentChanged)
    Q_PROPERTY(zelmo::DesktopBackdrop* backdrop READ backdrop WRITE setBackdrop NOTIFY contentChanged)
    // The gradient begins at the top right.
    Q_PROPERTY(bool mirrored READ isMirrored WRITE setMirrored NOTIFY contentChanged)

public:
    BackgroundItem();

    const QList<QColor>& colors() const { return m_colors; }
    void setColors(const QList<QColor>& colors);
    DesktopBackdrop* backdrop() const { return m_backdrop; }
    void setBackdrop(DesktopBackdrop* backdrop);
    bool isMirrored() const { return m_mirrored; }
    void setMirrored(bool mirrored);

    bool showsDesktop() const;
    // A part of what it shows, through the material and in pixels, of which a point has so many; what reaches beyond
    // the item is cut off. While the scene is synchronized.
    QImage throughMaterialAt(const QRect& pixels, double scale) const;

Q_SIGNALS:
    // What it shows, or its size, has become another one.
    void contentChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void noteChange();
    QSGNode* newNode() const;
    QImage gradientPart(const QRect& pixels, QSize whole) const;

    QList<QColor> m_colors;
    QPointer<DesktopBackdrop> m_backdrop;
    bool m_mirrored = false;
    bool m_stale = true;
};

} // namespace zelmo
