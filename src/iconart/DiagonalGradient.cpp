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
std::vector<QRgb> DiagonalGradient::strip(int first, int count) const {
    const double width = m_size.width();
    const double height = m_size.height();
    const double whole = width * width + height * height;
    std::vector<QRgb> colors(static_cast<std::size_t>(count));
    for (int x = 0; x < count; ++x)
        colors[static_cast<std::size_t>(x)] = colorAt(m_stops, ((first + x + 0.5) * width + 0.5 * height) / whole);
    return colors;
}

QImage DiagonalGradient::band() const {
    QImage image(m_size.width() + bandStart(m_size.height()), bandHeight, QImage::Format_RGB32);
    const std::vector<QRgb> colors = strip(0, image.width() + bandStart(bandHeight));
    for (int y = 0; y < bandHeight; ++y)
        std::memcpy(image.scanLine(y), colors.data() + bandStart(y), static_cast<std::size_t>(image.bytesPerLine()));
    return image;
}

QImage DiagonalGradient::part(const QRect& area) const {
    QImage image(area.size(), QImage::Format_RGB32);
    const int start = bandStart(area.top());
    const std::vector<QRgb> colors = strip(area.left() + start, area.width() + bandStart(area.bottom()) - start);
    for (int y = 0; y < area.height(); ++y)
        std::memcpy(image.scanLine(y), colors.data() + bandStart(area.top() + y) - start,
                    static_cast<std::size_t>(image.bytesPerLine()));
    return image;
}

int DiagonalGradient::bandStart(int y) const {
    return static_cast<int>(std::lround(static_cast<double>(y) * m_size.height() / m_size.width()));
}

} // namespace zelmo
