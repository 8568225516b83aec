#include "iconart/DiagonalGradient.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace zelmo {

namespace {

QRgb colorAt(const QList<QColor>& stops, double position) {
    if (stops.isEmpty())
        return qRgb(0, 0, 0);
    const double place = std::clamp(position, 0.0, 1.0) * static_cast<double>(stops.size() - 1);
    const auto before = static_cast<qsizetype>(place);
    const QColor& from = stops[before];
    const QColor& to = stops[std::min(before + 1, stops.size() - 1)];
    const double part = place - static_cast<double>(before);
    const auto mix = [part](float a, float b) {
        return static_cast<int>(
            std::lround(255 * (static_cast<double>(a) * (1 - part) + static_cast<double>(b) * part)));
    };
    return qRgb(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()), mix(from.blueF(), to.blueF()));
}

} // namespace

DiagonalGradient::DiagonalGradient(const QList<QColor>& stops, QSize size) : m_stops(stops), m_size(size) {}

// The colour at (x, y) depends on x * width + y * height alone: a row further down is the same as
// height / width columns further right.
QImage DiagonalGradient::band() const {
    const double width = m_size.width();
    const double height = m_size.height();
    const double whole = width * width + height * height;
    QImage image(m_size.width() + bandStart(m_size.height()), bandHeight, QImage::Format_RGB32);
    std::vector<QRgb> strip(static_cast<std::size_t>(image.width() + bandStart(bandHeight)));
    for (std::size_t x = 0; x < strip.size(); ++x)
        strip[x] = colorAt(m_stops, ((static_cast<double>(x) + 0.5) * width + 0.5 * height) / whole);
    for (int y = 0; y < bandHeight; ++y)
        std::memcpy(image.scanLine(y), strip.data() + bandStart(y), static_cast<std::size_t>(image.bytesPerLine()));
    return image;
}

int DiagonalGradient::bandStart(int y) const {
    return static_cast<int>(std::lround(static_cast<double>(y) * m_size.height() / m_size.width()));
}

} // namespace zelmo
