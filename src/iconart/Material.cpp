#include "iconart/Material.h"

#include "iconart/BlurPlane.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <thread>
#include <vector>

namespace zelmo {

namespace {

// A blur this wide, in pixels of the small picture, still hides that it was made of one.
constexpr double smallRadius = 4;

// The factor by which a picture may be made smaller before it is blurred.
int reduction(double radius) {
    int factor = 1;
    while (radius / (2 * factor) >= smallRadius)
        factor *= 2;
    return factor;
}

// Does the upper half of some rows on this thread and the lower on another.
template <typename Work>
void inBands(int rows, Work work) {
    std::thread lower([&] { work(rows / 2, rows); });
    work(0, rows / 2);
    lower.join();
}

// Steps to each of 8 bits, so that the divisions leave no bands.
constexpr int fine = 8;

// One channel of the picture with `margin` pixels around it that repeat the edge.
BlurPlane channel(const QImage& picture, unsigned shift, int margin) {
    BlurPlane plane(picture.width() + 2 * margin, picture.height() + 2 * margin);
    for (int y = 0; y < plane.height(); ++y) {
        const int row = std::clamp(y - margin, 0, picture.height() - 1);
        const auto* source = reinterpret_cast<const QRgb*>(picture.constScanLine(row));
        std::uint16_t* target = plane.row(y);
        const auto value = [shift](QRgb color) {
            return static_cast<std::uint16_t>(((color >> shift) & 0xffU) * fine);
        };
        std::fill_n(target, margin, value(source[0]));
        std::transform(source, source + picture.width(), target + margin, value);
        std::fill_n(target + margin + picture.width(), margin, value(source[picture.width() - 1]));
    }
    return plane;
}

// Strengthens colours and lays the tint over them, in whole numbers: it is done to every pixel of a screen.
class Toning {
public:
    explicit Toning(const MaterialStyle& style)
        : m_saturation(static_cast<int>(std::lround(std::clamp(style.saturation, 0.0, 7.0) * saturationOne))),
          m_rest(coverOne - static_cast<int>(std::lround(style.tint.alphaF() * coverOne))) {
        const std::array<float, 3> tint{style.tint.redF(), style.tint.greenF(), style.tint.blueF()};
        std::transform(tint.begin(), tint.end(), m_tint.begin(), [this](float value) {
            return static_cast<int>(std::lround(255 * fine * grayOne * static_cast<double>(value))) *
                   (coverOne - m_rest);
        });
    }

    // Of values in fine steps.
    QRgb operator()(int red, int green, int blue) const {
        // As bright as before to the eye. The weights make up `grayOne`.
        const int gray = 54 * red + 183 * green + 19 * blue;
        return 0xff000000U | shown(red, gray, 0) << 16U | shown(green, gray, 1) << 8U | shown(blue, gray, 2);
    }

private:
    static constexpr int grayOne = 256;
    static constexpr int saturationOne = 512;
    static constexpr int coverOne = 1024;
    static constexpr int one = fine * grayOne * coverOne; // a step of 8 bits

    unsigned shown(int value, int gray, std::size_t channel) const {
        const int strong = gray + m_saturation * (value * grayOne - gray) / saturationOne;
        const int inRange = std::clamp(strong, 0, 255 * fine * grayOne);
        return static_cast<unsigned>((inRange * m_rest + m_tint[channel] + one / 2) / one);
    }

    int m_saturation;
    int m_rest;
    std::array<int, 3> m_tint{};
};

// Strengthens and tints a picture.
QImage toned(const QImage& picture, const MaterialStyle& style) {
    const Toning toning(style);
    QImage result(picture.size(), QImage::Format_RGB32);
    for (int y = 0; y < result.height(); ++y) {
        const auto* source = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        std::transform(
            source, source + result.width(), reinterpret_cast<QRgb*>(result.scanLine(y)),
            [&toning](QRgb color) { return toning(qRed(color) * fine, qGreen(color) * fine, qBlue(color) * fine); });
    }
    return result;
}

// Blurs a small picture, strengthens and tints it.
QImage processed(const QImage& picture, double radius, const MaterialStyle& style) {
    const int width = boxWidth(radius / 2);
    const int margin = 3 * (width / 2);
    std::array planes{channel(picture, 16, margin), channel(picture, 8, margin), channel(picture, 0, margin)};
    for (BlurPlane& plane : planes)
        plane.blur(width);
    const Toning toning(style);
    const int columns = picture.width();
    QImage result(picture.size(), QImage::Format_RGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* target = reinterpret_cast<QRgb*>(result.scanLine(y));
        const std::uint16_t* red = planes[0].row(y + margin) + margin;
        const std::uint16_t* green = planes[1].row(y + margin) + margin;
        const std::uint16_t* blue = planes[2].row(y + margin) + margin;
        for (int x = 0; x < columns; ++x)
            target[x] = toning(red[x], green[x], blue[x]);
    }
    return result;
}

// Each pixel is the mean of a square of the picture; what is left over at the right and the bottom does not count.
QImage reduced(const QImage& picture, int factor) {
    QImage result(std::max(1, picture.width() / factor), std::max(1, picture.height() / factor), QImage::Format_RGB32);
    inBands(result.height(), [&](int first, int end) {
        std::vector<std::array<std::uint32_t, 3>> sums(static_cast<std::size_t>(result.width()));
        for (int y = first; y < end; ++y) {
            std::fill(sums.begin(), sums.end(), std::array<std::uint32_t, 3>{});
            const int rows = std::min(factor, picture.height());
            const int columns = std::min(factor, picture.width());
            for (int row = 0; row < rows; ++row) {
                const auto* source = reinterpret_cast<const QRgb*>(picture.constScanLine(y * factor + row));
                for (auto& sum : sums) {
                    for (int column = 0; column < columns; ++column, ++source) {
                        sum[0] += (*source >> 16U) & 0xffU;
                        sum[1] += (*source >> 8U) & 0xffU;
                        sum[2] += *source & 0xffU;
                    }
                }
            }
            auto* target = reinterpret_cast<QRgb*>(result.scanLine(y));
            const auto mean = [count = static_cast<std::uint32_t>(rows * columns)](std::uint32_t sum) {
                return static_cast<int>((sum + count / 2) / count);
            };
            for (std::size_t x = 0; x < sums.size(); ++x)
                target[x] = qRgb(mean(sums[x][0]), mean(sums[x][1]), mean(sums[x][2]));
        }
    });
    return result;
}

// Between two colours, `part` 256ths of the way.
QRgb between(QRgb from, QRgb to, std::uint32_t part) {
    const auto mix = [part](std::uint32_t a, std::uint32_t b) { return (a * (256 - part) + b * part) >> 8U; };
    const std::uint32_t redAndBlue = mix(from & 0xff00ffU, to & 0xff00ffU) & 0xff00ffU;
    const std::uint32_t green = mix((from >> 8U) & 0xffU, (to >> 8U) & 0xffU) << 8U;
    return 0xff000000U | redAndBlue | green;
}

// Where the middle of a pixel lies in a row of pixels that are each as large as `factor` of it.
struct Place {
    int before;
    int after;
    std::uint32_t part; // in 256ths
};

std::vector<Place> places(int count, int small, int factor) {
    std::vector<Place> list(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const double position = std::clamp((i + 0.5) / factor - 0.5, 0.0, static_cast<double>(small - 1));
        const int before = static_cast<int>(position);
        list[static_cast<std::size_t>(i)] = {.before = before,
                                             .after = std::min(before + 1, small - 1),
                                             .part = static_cast<std::uint32_t>(256 * (position - before))};
    }
    return list;
}

// Evenly from pixel to pixel.
QImage enlarged(const QImage& small, QSize size, int factor) {
    QImage result(size, QImage::Format_RGB32);
    const std::vector<Place> columns = places(size.width(), small.width(), factor);
    const std::vector<Place> rows = places(size.height(), small.height(), factor);
    // On this thread: it may have to make the picture its own.
    uchar* const bits = result.bits();
    const qsizetype stride = result.bytesPerLine();
    inBands(size.height(), [&](int first, int end) {
        std::vector<QRgb> line(static_cast<std::size_t>(small.width()));
        for (int y = first; y < end; ++y) {
            const Place& row = rows[static_cast<std::size_t>(y)];
            const auto* above = reinterpret_cast<const QRgb*>(small.constScanLine(row.before));
            const auto* below = reinterpret_cast<const QRgb*>(small.constScanLine(row.after));
            for (std::size_t x = 0; x < line.size(); ++x)
                line[x] = between(above[x], below[x], row.part);
            auto* target = reinterpret_cast<QRgb*>(bits + y * stride);
            for (const Place& column : columns)
                *target++ = between(line[static_cast<std::size_t>(column.before)],
                                    line[static_cast<std::size_t>(column.after)], column.part);
        }
    });
    return result;
}

} // namespace

MaterialStyle MaterialStyle::ultraThin() {
    return {.blurRadius = 60, .saturation = 1.6, .tint = QColor::fromRgbF(0.09F, 0.09F, 0.13F, 0.42F)};
}

QImage throughMaterial(const QImage& behind, double scale, const MaterialStyle& style) {
    if (behind.isNull())
        return {};
    const double radius = style.blurRadius * scale;
    const int factor = reduction(radius);
    const QImage opaque = behind.convertToFormat(QImage::Format_RGB32);
    if (radius <= 0)
        return toned(opaque, style);
    if (factor == 1)
        return processed(opaque, radius, style);
    return enlarged(processed(reduced(opaque, factor), radius / factor, style), behind.size(), factor);
}

} // namespace zelmo
