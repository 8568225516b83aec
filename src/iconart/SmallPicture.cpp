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

// One value after the other from one row to another, `part` 256ths of the way. In 16 bits, so that a processor does
// many at once.
void mix(const std::uint8_t* from, const std::uint8_t* to, std::uint8_t* target, std::size_t count,
         std::uint32_t part) {
    const auto rest = static_cast<std::uint16_t>(256 - part);
    const auto share = static_cast<std::uint16_t>(part);
    for (std::size_t i = 0; i < count; ++i)
        target[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(from[i] * rest + to[i] * share) >> 8U);
}

// The columns of an area from one row of a small picture, channel by channel.
class WideRow {
public:
    explicit WideRow(const std::vector<Place>& columns) : m_columns(&columns), m_values(columns.size() * channels) {}

    // A row of pixels, if it is not that one already.
    const std::uint8_t* of(const QImage& small, int row) {
        if (m_row == row)
            return m_values.data();
        m_row = row;
        const std::uint8_t* pixels = small.constScanLine(row);
        std::uint8_t* target = m_values.data();
        for (const Place& column : *m_columns) {
            mix(pixels + static_cast<std::size_t>(column.before) * channels,
                pixels + static_cast<std::size_t>(column.after) * channels, target, channels, column.part);
            target += channels;
        }
        return m_values.data();
    }
    int row() const { return m_row; }
    std::size_t size() const { return m_values.size(); }

private:
    static constexpr std::size_t channels = sizeof(QRgb);

    const std::vector<Place>* m_columns;
    std::vector<std::uint8_t> m_values;
    int m_row = -1;
};

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
        WideRow above(columns);
        WideRow below(columns);
        for (int y = first; y < end; ++y) {
            const Place& row = rows[static_cast<std::size_t>(y)];
            if (below.row() == row.before)
                std::swap(above, below);
            mix(above.of(pixels, row.before), below.of(pixels, row.after), bits + y * stride, above.size(), row.part);
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
