#include "iconart/Plate.h"

#include "iconart/ContinuousRectangle.h"
#include "iconart/SpreadGradient.h"

#include <QHashFunctions>
#include <QLineF>
#include <QPainter>
#include <QRgba64>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace zelmo {

namespace {

// From where to where a gradient runs.
QLineF way(GradientDirection direction, const QRectF& area, bool isMirrored) {
    const double leading = isMirrored ? area.right() : area.left();
    const double trailing = isMirrored ? area.left() : area.right();
    switch (direction) {
    case GradientDirection::diagonal:
        return {leading, area.top(), trailing, area.bottom()};
    case GradientDirection::down:
        return {area.topLeft(), area.bottomLeft()};
    case GradientDirection::across:
        break;
    }
    return {leading, area.top(), trailing, area.top()};
}

ShadowStyle inPixels(const ShadowStyle& shadow, double scale) {
    return {.opacity = shadow.opacity, .radius = shadow.radius * scale, .offset = shadow.offset * scale};
}

std::size_t hashOf(const PlateColors& colors, std::size_t seed) {
    for (const QColor& stop : colors.stops)
        seed = qHashMulti(seed, stop.rgba64().operator quint64());
    return qHashMulti(seed, static_cast<int>(colors.direction));
}

bool isClear(const PlateColors& colors) {
    return std::all_of(colors.stops.begin(), colors.stops.end(), [](const QColor& stop) { return stop.alpha() == 0; });
}

// Fills a path of points. The gradient runs over the area.
void fill(QImage& image, double scale, const QPainterPath& path, const PlateColors& colors, const QRectF& area,
          bool isMirrored) {
    if (isClear(colors))
        return;
    const bool isPlain = colors.stops.size() == 1;
    QImage mask;
    if (!isPlain) {
        mask = QImage(image.size(), QImage::Format_Alpha8);
        mask.fill(Qt::transparent);
    }
    {
        QPainter painter(isPlain ? &image : &mask);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        painter.fillPath(path, isPlain ? colors.stops.first() : QColor(Qt::black));
    }
    if (!isPlain)
        spreadOver(image, mask, colors.stops,
                   QTransform::fromScale(scale, scale).map(way(colors.direction, area, isMirrored)));
}

// Larger by as many copies of the middle column and the middle row as it takes.
QImage stretched(const QImage& picture, QSize size) {
    if (picture.size() == size || picture.isNull())
        return picture;
    QImage result(size, picture.format());
    const int left = picture.width() / 2;
    const int right = picture.width() - left;
    const int top = picture.height() / 2;
    for (int y = 0; y < size.height(); ++y) {
        const int row = y < top ? y : std::max(top, y - size.height() + picture.height());
        const auto* from = reinterpret_cast<const QRgb*>(picture.constScanLine(row));
        auto* to = reinterpret_cast<QRgb*>(result.scanLine(y));
        std::copy_n(from, left, to);
        std::fill(to + left, to + size.width() - right, from[left]);
        std::copy_n(from + left, right, to + size.width() - right);
    }
    return result;
}

} // namespace

std::size_t qHash(const PlateStyle& style, std::size_t seed) {
    seed = hashOf(style.stroke, hashOf(style.fill, seed));
    return qHashMulti(seed, style.radius, style.strokeWidth, style.shadow.opacity, style.shadow.radius,
                      style.shadow.offset, style.isMirrored);
}

int plateMargin(const PlateStyle& style, double scale) {
    return style.shadow.opacity > 0 ? shadowMargin(inPixels(style.shadow, scale)) : 0;
}

QImage paintPlate(QSizeF size, double scale, const PlateStyle& style) {
    const QSize pixels(static_cast<int>(std::ceil(size.width() * scale)),
                       static_cast<int>(std::ceil(size.height() * scale)));
    if (pixels.isEmpty() || (isClear(style.fill) && isClear(style.stroke)))
        return {};
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    const QRectF area(QPointF(), size);
    fill(image, scale, continuousRectangle(area, style.radius), style.fill, area, style.isMirrored);
    if (const double width = style.strokeWidth; width > 0) {
        // Between two outlines: a pen would work its own out from each piece of the corners.
        QPainterPath ring = continuousRectangle(area, style.radius);
        if (const QRectF inside = area.adjusted(width, width, -width, -width); inside.isValid())
            ring.addPath(continuousRectangle(inside, style.radius - width));
        fill(image, scale, ring, style.stroke, area, style.isMirrored);
    }
    return style.shadow.opacity > 0 ? withShadow(image, inPixels(style.shadow, scale)) : image;
}

QImage plateShadow(QSize pixels, double radius, const ShadowStyle& style) {
    const int margin = shadowMargin(style);
    // Between the corners, as far as the blur carries them, each column is like the next and each row as well.
    const int corner = static_cast<int>(std::ceil(continuousReach(radius))) + margin;
    const QSize small = pixels.boundedTo({2 * corner + 1, 2 * corner + 1});
    QImage shape(small, QImage::Format_ARGB32_Premultiplied);
    shape.fill(Qt::transparent);
    {
        QPainter painter(&shape);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(continuousRectangle(QRectF(QPointF(), QSizeF(small)), radius), Qt::black);
    }
    return stretched(shadowOf(shape, style), pixels + QSize(2 * margin, 2 * margin));
}

} // namespace zelmo
