#include "iconart/Layer.h"

#include <QPainter>

#include <cmath>

namespace zelmo {

void paintWithShadow(QPainter& painter, const QRectF& rectangle, const ShadowStyle& shadow,
                     const std::function<void(QPainter& layer)>& draw) {
    const QTransform toPixels = painter.deviceTransform();
    const double scale = std::sqrt(std::abs(toPixels.determinant()));
    // With a pixel around for what lies between two.
    const QRect pixels = toPixels.mapRect(rectangle).toAlignedRect().adjusted(-1, -1, 1, 1);
    QImage layer(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    {
        QPainter layerPainter(&layer);
        layerPainter.setRenderHint(QPainter::Antialiasing);
        layerPainter.setTransform(toPixels * QTransform::fromTranslate(-pixels.x(), -pixels.y()));
        draw(layerPainter);
    }
    const ShadowStyle inPixels{
        .opacity = shadow.opacity, .radius = shadow.radius * scale, .offset = shadow.offset * scale};
    const int reach = shadowMargin(inPixels);
    painter.save();
    // In the device's own pixels, whatever their ratio to the painter's.
    painter.resetTransform();
    const double ratio = painter.device()->devicePixelRatioF();
    painter.scale(1 / ratio, 1 / ratio);
    painter.drawImage(pixels.topLeft() - QPoint(reach, reach), withShadow(layer, inPixels));
    painter.restore();
}

} // namespace zelmo
