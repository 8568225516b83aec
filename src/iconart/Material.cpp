#include "iconart/Material.h"

#include "iconart/BoxBlur.h"

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

// One channel of the picture with `margin` pixels around it that repeat the edge.
class Channel {
public:
    Channel(const QImage& picture, int shift, int margin)
        : m_margin(margin), m_width(picture.width() + 2 * margin), m_height(picture.height() + 2 * margin),
          m_values(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height)), m_scratch(m_values.size()) {
        for (int y = 0; y < m_height; ++y) {
            const int row = std::clamp(y - margin, 0, picture.height() - 1);
            const auto* source = reinterpret_cast<const QRgb*>(picture.constScanLine(row));
            for (int x = 0; x < m_width; ++x) {
                const int column = std::clamp(x - margin, 0, picture.width() - 1);
                at(x, y) = static_cast<std::uint16_t>(((source[column] >> shift) & 0xffU) * fine);
            }
        }
    }

    void blur(int width) {
        for (int pass = 0; pass < 3; ++pass) {
            for (int y = 0; y < m_height; ++y)
                boxBlur(&at(0, y), m_scratch.data() + static_cast<std::ptrdiff_t>(y) * m_width, m_width, 1, width);
            for (int x = 0; x < m_width; ++x)
                boxBlur(m_scratch.data() + x, m_values.data() + x, m_height, m_width, width);
        }
    }

    // The value of a pixel of the picture, 0 to 255.
    double value(int x, int y) { return static_cast<double>(at(x + m_margin, y + m_margin)) / fine; }

private:
    static constexpr unsigned fine = 8; // steps to each of 8 bits, so that the divisions leave no bands

    std::uint16_t& at(int x, int y) {
        return m_values[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x)];
    }

    int m_margin;
    int m_width;
    int m_height;
    std::vector<std::uint16_t> m_values;
    std::vector<std::uint16_t> m_scratch;
};

// Blurs, strengthens and tints a small picture.
QImage processed(const QImage& picture, double radius, const MaterialStyle& style) {
    const int width = boxWidth(radius / 2);
    const int margin = 3 * (width / 2);
    std::array channels{Channel(picture, 16, margin), Channel(picture, 8, margin), Channel(picture, 0, margin)};
    if (radius > 0) {
        for (Channel& channel : channels)
            channel.blur(width);
    }
    const double cover = style.tint.alphaF();
    const std::array<double, 3> tint{255.0 * style.tint.redF(), 255.0 * style.tint.greenF(),
                                     255.0 * style.tint.blueF()};
    QImage result(picture.size(), QImage::Format_RGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* target = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            std::array<double, 3> color{channels[0].value(x, y), channels[1].value(x, y), channels[2].value(x, y)};
            // As bright as before to the eye.
            const double gray = 0.2126 * color[0] + 0.7152 * color[1] + 0.0722 * color[2];
            std::array<int, 3> shown{};
            for (std::size_t i = 0; i < 3; ++i) {
                const double strong = std::clamp(gray + style.saturation * (color[i] - gray), 0.0, 255.0);
                shown[i] = static_cast<int>(std::lround(strong + cover * (tint[i] - strong)));
            }
            target[x] = qRgb(shown[0], shown[1], shown[2]);
        }
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
    if (factor == 1)
        return processed(opaque, radius, style);
    return enlarged(processed(reduced(opaque, factor), radius / factor, style), behind.size(), factor);
}

} // namespace zelmo
