#include "iconart/Material.h"

#include "iconart/BoxBlur.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace zelmo {

namespace {

// A blur this wide, in pixels of the small picture, still hides that it was made of one.
constexpr double smallRadius = 8;

// The factor by which a picture may be made smaller before it is blurred.
int reduction(double radius) {
    int factor = 1;
    while (radius / (2 * factor) >= smallRadius)
        factor *= 2;
    return factor;
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

} // namespace

MaterialStyle MaterialStyle::ultraThin() {
    return {.blurRadius = 60, .saturation = 1.6, .tint = QColor::fromRgbF(0.09F, 0.09F, 0.13F, 0.42F)};
}

QImage throughMaterial(const QImage& behind, double scale, const MaterialStyle& style) {
    if (behind.isNull())
        return {};
    const double radius = style.blurRadius * scale;
    const int factor = reduction(radius);
    const QSize small = (QSizeF(behind.size()) / factor).toSize().expandedTo({1, 1});
    const QImage opaque = behind.convertToFormat(QImage::Format_RGB32);
    const QImage reduced = factor == 1 ? opaque : opaque.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage result = processed(reduced.convertToFormat(QImage::Format_RGB32), radius / factor, style);
    if (factor > 1)
        result = result.scaled(behind.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                     .convertToFormat(QImage::Format_RGB32);
    return result;
}

} // namespace zelmo
