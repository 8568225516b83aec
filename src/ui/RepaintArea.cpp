#include "ui/RepaintArea.h"

#include <QSGRenderNode>

namespace zelmo {

namespace {

class RepaintNode : public QSGRenderNode {
public:
    void setSize(QSizeF size) { m_size = size; }

    void render(const RenderState*) override {}
    RenderingFlags flags() const override { return BoundedRectRendering | DepthAwareRendering; }
    StateFlags changedStates() const override { return {}; }
    QRectF rect() const override { return {QPointF(), m_size}; }

private:
    QSizeF m_size;
};

} // namespace

RepaintArea::RepaintArea(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void RepaintArea::repaint(const QRectF& area) {
    setPosition(area.topLeft());
    setSize(area.size());
    update();
}

QSGNode* RepaintArea::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    auto* area = node ? static_cast<RepaintNode*>(node) : new RepaintNode;
    area->setSize(size());
    area->markDirty(QSGNode::DirtyMaterial);
    return area;
}

} // namespace zelmo
