#include "iconart/Plate.h"

#include "iconart/ContinuousRectangle.h"

#include <QHashFunctions>
#include <QLinearGradient>
#include <QPainter>
#include <QRgba64>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

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

bool isClear(const PlateColors& colors) {
    return std::all_of(colors.stops.begin(), colors.stops.end(), [](const QColor& stop) { return stop.alpha() == 0; });
}

bool isGradient(const PlateColors& colors) {
    return colors.stops.size() > 1 && !isClear(colors);
}

// Which share of a step of 8 bits a pixel needs to get the next one: the numbers 0 to 63 over 64 in Bayer's order, in
// which neighbours differ most.
constexpr std::array<std::array<std::uint32_t, 8>, 8> thresholds = [] {
    std::array<std::array<std::uint32_t, 8>, 8> table{};
    for (std::uint32_t y = 0; y < 8; ++y) {
        for (std::uint32_t x = 0; x < 8; ++x) {
            std::uint32_t order = 0;
            for (std::uint32_t bit = 0; bit < 3; ++bit)
                order = order << 2U | ((x ^ y) >> bit & 1U) << 1U | (y >> bit & 1U);
            table[y][x] = order * 65535 / 64;
        }
    }
    return table;
}();

// A faint gradient has fewer steps of 8 bits than pixels. Which of two steps a pixel gets is spread so evenly that no
// bands are to be seen.
QImage spread(const QImage& fine) {
    QImage image(fine.size(), QImage::Format_ARGB32_Premultiplied);
    const int columns = image.width();
    for (int y = 0; y < image.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgba64*>(fine.constScanLine(y));
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        const auto& row = thresholds[static_cast<std::size_t>(y) % 8];
        for (int x = 0; x < columns; ++x) {
            const std::uint32_t threshold = row[static_cast<std::size_t>(x) % 8];
            const auto step = [threshold](quint16 value) {
                return static_cast<int>((value * 255U + threshold) / 65535U);
            };
            const int alpha = step(from[x].alpha());
            to[x] = qRgba(std::min(step(from[x].red()), alpha), std::min(step(from[x].green()), alpha),
                          std::min(step(from[x].blue()), alpha), alpha);
        }
    }
    return image;
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
    if (pixels.isEmpty() || (isClear(style.fill) && isClear(style.stroke)))
        return {};
    const bool isFine = isGradient(style.fill) || isGradient(style.stroke);
    QImage image(pixels, isFine ? QImage::Format_RGBA64_Premultiplied : QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        const QRectF area(QPointF(), size);
        if (!isClear(style.fill))
            painter.fillPath(continuousRectangle(area, style.radius), brush(style.fill, area));
        if (!isClear(style.stroke) && style.strokeWidth > 0) {
            const double half = style.strokeWidth / 2;
            painter.strokePath(continuousRectangle(area.adjusted(half, half, -half, -half), style.radius - half),
                               QPen(brush(style.stroke, area), style.strokeWidth));
        }
    }
    if (isFine)
        image = spread(image);
    return style.shadow.opacity > 0 ? withShadow(image, inPixels(style.shadow, scale)) : image;
}

} // namespace zelmo
