#include "iconart/Plate.h"

#include "iconart/ContinuousRectangle.h"

#include <QHashFunctions>
#include <QLineF>
#include <QPainter>
#include <QRgba64>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

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

// The colours of a gradient from its beginning to its end in so many steps, for each threshold. A faint gradient has
// fewer steps of 8 bits than pixels: which of two a pixel gets is spread so evenly that no bands are to be seen.
class SpreadColors {
public:
    SpreadColors(const QList<QColor>& stops, int count)
        : m_count(count), m_colors(64 * static_cast<std::size_t>(count)) {
        for (int i = 0; i < count; ++i) {
            const double place = static_cast<double>(i) * static_cast<double>(stops.size() - 1) / (count - 1);
            const auto before = std::min(static_cast<qsizetype>(place), stops.size() - 2);
            const double part = place - static_cast<double>(before);
            const QRgba64 from = stops[before].rgba64().premultiplied();
            const QRgba64 to = stops[before + 1].rgba64().premultiplied();
            const auto mix = [part](quint16 a, quint16 b) {
                return static_cast<std::uint32_t>(std::lround(255 * (a + part * (b - a))));
            };
            const std::array fine{mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()),
                                  mix(from.alpha(), to.alpha())};
            for (std::size_t y = 0; y < 8; ++y) {
                for (std::size_t x = 0; x < 8; ++x)
                    m_colors[index(y, x) + static_cast<std::size_t>(i)] = step(fine, thresholds[y][x]);
            }
        }
    }

    int count() const { return m_count; }
    // Those of a pixel in this row and column.
    const QRgb* of(std::size_t y, std::size_t x) const { return m_colors.data() + index(y % 8, x % 8); }

private:
    static QRgb step(const std::array<std::uint32_t, 4>& fine, std::uint32_t threshold) {
        const auto value = [threshold](std::uint32_t share) { return static_cast<int>((share + threshold) / 65535U); };
        const int alpha = value(fine[3]);
        return qRgba(std::min(value(fine[0]), alpha), std::min(value(fine[1]), alpha), std::min(value(fine[2]), alpha),
                     alpha);
    }

    std::size_t index(std::size_t y, std::size_t x) const { return (8 * y + x) * static_cast<std::size_t>(m_count); }

    int m_count;
    std::vector<QRgb> m_colors;
};

// A 255th part, `share` times.
QRgb times(QRgb color, std::uint32_t share) {
    const auto scaled = [share](int value) {
        return static_cast<int>((static_cast<std::uint32_t>(value) * share + 127) / 255);
    };
    return qRgba(scaled(qRed(color)), scaled(qGreen(color)), scaled(qBlue(color)), scaled(qAlpha(color)));
}

// Lays a gradient over the picture, as opaque as the mask.
void spreadOver(QImage& image, const QImage& mask, const QList<QColor>& stops, const QLineF& wayInPixels) {
    // Of neighbours no more than a step apart there are at most 256.
    const double length = wayInPixels.length();
    const SpreadColors colors(stops, std::clamp(static_cast<int>(length), 2, 256));
    const QPointF perPixel = (wayInPixels.p2() - wayInPixels.p1()) / (length * length) * colors.count();
    const int columns = image.width();
    for (int y = 0; y < image.height(); ++y) {
        const uchar* cover = mask.constScanLine(y);
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::array<const QRgb*, 8> row{};
        for (std::size_t x = 0; x < row.size(); ++x)
            row[x] = colors.of(static_cast<std::size_t>(y), x);
        const double start = QPointF::dotProduct(QPointF(0.5, y + 0.5) - wayInPixels.p1(), perPixel);
        for (int x = 0; x < columns; ++x) {
            if (cover[x] == 0)
                continue;
            const int place = std::clamp(static_cast<int>(start + x * perPixel.x()), 0, colors.count() - 1);
            QRgb color = row[static_cast<std::size_t>(x) % 8][place];
            if (cover[x] < 255)
                color = times(color, cover[x]);
            if (to[x] != 0)
                color += times(to[x], 255U - static_cast<std::uint32_t>(qAlpha(color)));
            to[x] = color;
        }
    }
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
