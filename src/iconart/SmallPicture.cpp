#include "iconart/SmallPicture.h"

#include <algorithm>
#include <thread>

namespace zelmo {

namespace {

constexpr std::uint32_t redAndBlueMask = 0xff00ffU;

// Does the upper half of some rows on this thread and the lower on another.
template <typename Work>
void inBands(int rows, Work work) {
    std::thread lower([&] { work(rows / 2, rows); });
    work(0, rows / 2);
    lower.join();
}

// Between two colours, `part` 256ths of the way.
QRgb between(QRgb from, QRgb to, std::uint32_t part) {
    const auto mix = [part](std::uint32_t a, std::uint32_t b) { return (a * (256 - part) + b * part) >> 8U; };
    const std::uint32_t redAndBlue = mix(from & redAndBlueMask, to & redAndBlueMask) & redAndBlueMask;
    const std::uint32_t green = mix((from >> 8U) & 0xffU, (to >> 8U) & 0xffU) << 8U;
    return 0xff000000U | redAndBlue | green;
}

// Where the middle of a pixel lies in a row of pixels that are each as large as `factor` of it.
struct Place {
    int before;
    int after;
    std::uint32_t part; // in 256ths
};

std::vector<Place> places(int first, int count, int small, int factor) {
    std::vector<Place> list(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const double position = std::clamp((first + i + 0.5) / factor - 0.5, 0.0, static_cast<double>(small - 1));
        const int before = static_cast<int>(position);
        list[static_cast<std::size_t>(i)] = {.before = before,
                                             .after = std::min(before + 1, small - 1),
                                             .part = static_cast<std::uint32_t>(256 * (position - before))};
    }
    return list;
}

} // namespace

SmallPicture SmallPicture::of(const QImage& picture, int factor) {
    if (picture.isNull())
        return {};
    const QImage opaque = picture.convertToFormat(QImage::Format_RGB32);
    if (factor == 1)
        return {.pixels = opaque, .size = picture.size()};
    PictureReduction reduction(picture.size(), factor);
    reduction.add(opaque);
    return reduction.take();
}

QImage SmallPicture::part(const QRect& area) const {
    if (factor == 1)
        return area == pixels.rect() ? pixels : pixels.copy(area);
    QImage result(area.size(), QImage::Format_RGB32);
    if (isNull() || result.isNull())
        return {};
    const std::vector<Place> columns = places(area.x(), area.width(), pixels.width(), factor);
    const std::vector<Place> rows = places(area.y(), area.height(), pixels.height(), factor);
    // On this thread: it may have to make the picture its own.
    uchar* const bits = result.bits();
    const qsizetype stride = result.bytesPerLine();
    inBands(area.height(), [&](int first, int end) {
        std::vector<QRgb> line(static_cast<std::size_t>(pixels.width()));
        for (int y = first; y < end; ++y) {
            const Place& row = rows[static_cast<std::size_t>(y)];
            const auto* above = reinterpret_cast<const QRgb*>(pixels.constScanLine(row.before));
            const auto* below = reinterpret_cast<const QRgb*>(pixels.constScanLine(row.after));
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

PictureReduction::PictureReduction(QSize size, int factor)
    : m_result{.pixels = QImage(std::max(1, size.width() / factor), std::max(1, size.height() / factor),
                                QImage::Format_RGB32),
               .size = size,
               .factor = factor},
      m_columns(std::min(factor, size.width())), m_rows(std::min(factor, size.height())),
      m_redAndBlue(static_cast<std::size_t>(m_result.pixels.width() * m_columns)), m_green(m_redAndBlue.size()) {}

void PictureReduction::add(const QImage& rows) {
    for (int y = 0; y < rows.height() && m_added < m_result.pixels.height() * m_rows; ++y) {
        const auto* source = reinterpret_cast<const QRgb*>(rows.constScanLine(y));
        std::uint32_t* redAndBlue = m_redAndBlue.data();
        std::uint32_t* green = m_green.data();
        for (std::size_t x = 0; x < m_green.size(); ++x) {
            redAndBlue[x] += source[x] & redAndBlueMask;
            green[x] += source[x] >> 8U & 0xffU;
        }
        if (++m_added % m_rows == 0)
            finishRow();
    }
}

void PictureReduction::finishRow() {
    auto* target = reinterpret_cast<QRgb*>(m_result.pixels.scanLine(m_added / m_rows - 1));
    const auto count = static_cast<std::uint32_t>(m_rows * m_columns);
    const auto mean = [count](std::uint32_t sum) { return (sum + count / 2) / count; };
    const auto columns = static_cast<std::size_t>(m_columns);
    for (std::size_t start = 0; start < m_green.size(); start += columns) {
        std::uint32_t redAndBlue = 0;
        std::uint32_t green = 0;
        for (std::size_t x = start; x < start + columns; ++x) {
            redAndBlue += m_redAndBlue[x];
            green += m_green[x];
        }
        *target++ = 0xff000000U | mean(redAndBlue >> 16U) << 16U | mean(green) << 8U | mean(redAndBlue & 0xffffU);
    }
    std::fill(m_redAndBlue.begin(), m_redAndBlue.end(), 0);
    std::fill(m_green.begin(), m_green.end(), 0);
}

} // namespace zelmo
