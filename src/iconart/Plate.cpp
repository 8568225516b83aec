#include "iconart/Plate.h"

#include "iconart/ContinuousRectangle.h"

#include <QHashFunctions>
#include <QLinearGradient>
#include <QPainter>

#include <cmath>

namespace zelmo {

namespace {

QBrush brush(const PlateColors& colors, const QRectF& area) {
    if (colors.stops.size() == 1)
        return colors.stops.first();
    QPointF end = area.bottomRight();
    if (colors.direction == GradientDirection::down)
        end = area.bottomLeft();
    else if (colors.direction == GradientDirection::across)
        end = area.topRight();
    QLinearGradient gradient(area.topLeft(), end);
    for (qsizetype i = 0; i < colors.stops.size(); ++i)
        gradient.setColorAt(static_cast<double>(i) / static_cast<double>(colors.stops.size() - 1), colors.stops[i]);
    return gradient;
}

ShadowStyle inPixels(const ShadowStyle& shadow, double scale) {
    return {.opacity = shadow.opacity, .radius = shadow.radius * scale, .offset = shadow.offset * scale};
}

std::size_t hashOf(const PlateColors& colors, std::size_t seed) {
    for (const QColor& stop : colors.stops)
        seed = qHashMulti(seed, stop.rgba64().operator quint64());
    return qHashMulti(seed, static_cast<int>(colors.direction));
}

} // namespace

std::size_t qHash(const PlateStyle& style, std::size_t seed) {
    seed = hashOf(style.stroke, hashOf(style.fill, seed));
    return qHashMulti(seed, style.radius, style.strokeWidth, style.shadow.opacity, style.shadow.radius,
                      style.shadow.offset);
}

int plateMargin(const PlateStyle& style, double scale) {
    return style.shadow.opacity > 0 ? shadowMargin(inPixels(style.shadow, scale)) : 0;
}

QImage paintPlate(QSizeF size, double scale, const PlateStyle& style) {
    const QSize pixels(static_cast<int>(std::ceil(size.width() * scale)),
                       static_cast<int>(std::ceil(size.height() * scale)));
    if (pixels.isEmpty() || (style.fill.stops.isEmpty() && style.stroke.stops.isEmpty()))
        return {};
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        const QRectF area(QPointF(), size);
        if (!style.fill.stops.isEmpty())
            painter.fillPath(continuousRectangle(area, style.radius), brush(style.fill, area));
        if (!style.stroke.stops.isEmpty() && style.strokeWidth > 0) {
            const double half = style.strokeWidth / 2;
            painter.strokePath(continuousRectangle(area.adjusted(half, half, -half, -half), style.radius - half),
                               QPen(brush(style.stroke, area), style.strokeWidth));
        }
    }
    return style.shadow.opacity > 0 ? withShadow(image, inPixels(style.shadow, scale)) : image;
}

} // namespace zelmo
