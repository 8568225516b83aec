#pragma once

#include <QQuickItem>

namespace zelmo {

// Draws nothing; has all that lies within it painted anew as one rectangle. The software renderer otherwise collects
// the rectangles of all that changed: where they are many, that and clipping to them takes longer than to paint what
// lies between them as well. Belongs in front of what it is for. Owned by its parent item; main thread.
class RepaintArea : public QQuickItem {
    Q_OBJECT

public:
    explicit RepaintArea(QQuickItem* parent);

    // Once, with the next frame; in the parent's coordinates.
    void repaint(const QRectF& area);

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
};

} // namespace zelmo
