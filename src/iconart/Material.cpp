#include "iconart/Material.h"

#include "iconart/BlurPlane.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zelmo {

namespace {

// A blur this wide, in pixels of the small picture, still hides that it was made of one.
constexpr double smallRadius = 4;

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

} // namespace

MaterialStyle MaterialStyle::ultraThin() {
    return {.blurRadius = 60, .saturation = 1.6, .tint = QColor::fromRgbF(0.09F, 0.09F, 0.13F, 0.42F)};
}

int materialReduction(double scale, const MaterialStyle& style) {
    int factor = 1;
    while (2 * factor <= PictureReduction::largestFactor && style.blurRadius * scale / (2 * factor) >= smallRadius)
        factor *= 2;
    return factor;
}

SmallPicture throughMaterial(const SmallPicture& behind, double scale, const MaterialStyle& style) {
    if (behind.isNull())
        return {};
    const double radius = style.blurRadius * scale / behind.factor;
    SmallPicture seen = behind;
    seen.pixels = radius <= 0 ? toned(behind.pixels, style) : processed(behind.pixels, radius, style);
    return seen;
}

QImage throughMaterial(const QImage& behind, double scale, const MaterialStyle& style) {
    return throughMaterial(SmallPicture::of(behind, materialReduction(scale, style)), scale, style).part(behind.rect());
}

} // namespace zelmo
