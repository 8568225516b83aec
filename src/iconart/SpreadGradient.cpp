#include "iconart/SpreadGradient.h"

#include <QRgba64>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace zelmo {

namespace {

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

// The colours of a gradient from its beginning to its end in so many steps, for each threshold.
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

} // namespace

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

} // namespace zelmo
