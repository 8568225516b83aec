#include "iconart/Shadow.h"

#include "iconart/BlurPlane.h"

#include <QPainter>

#include <array>
#include <cmath>
#include <cstdint>

namespace zelmo {

int shadowMargin(const ShadowStyle& style) {
    const int reach = 3 * (boxWidth(style.radius / 2) / 2);
    return reach + static_cast<int>(std::ceil(std::abs(style.offset)));
}

QImage shadowOf(const QImage& picture, const ShadowStyle& style) {
    // Alpha in 8 times finer steps, so that the divisions leave no visible bands.
    constexpr int fine = 8;
    const int margin = shadowMargin(style);
    const QSize size(picture.width() + 2 * margin, picture.height() + 2 * margin);
    // Between two rows, each takes its share.
    const int drop = static_cast<int>(std::floor(style.offset));
    const auto below = static_cast<unsigned>(std::lround((style.offset - drop) * fine));

    BlurPlane alpha(size.width(), size.height());
    const int columns = picture.width();
    for (int y = 0; y < picture.height(); ++y) {
        const auto* source = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        std::uint16_t* target = alpha.row(y + margin + drop) + margin;
        for (int x = 0; x < columns; ++x) {
            const auto opacity = static_cast<unsigned>(qAlpha(source[x]));
            target[x] = static_cast<std::uint16_t>(target[x] + opacity * (fine - below));
            // Only then there is a row below the last one.
            if (below > 0)
                target[x + size.width()] = static_cast<std::uint16_t>(opacity * below);
        }
    }
    alpha.blur(boxWidth(style.radius / 2));

    std::array<QRgb, 256 * fine> shades{};
    for (std::size_t i = 0; i < shades.size(); ++i)
        shades[i] = qRgba(0, 0, 0, static_cast<int>(std::lround(static_cast<double>(i) * style.opacity / fine)));
    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        auto* target = reinterpret_cast<QRgb*>(result.scanLine(y));
        const std::uint16_t* source = alpha.row(y);
        for (int x = 0; x < size.width(); ++x)
            target[x] = shades[source[x]];
    }
    return result;
}

QImage withShadow(const QImage& picture, const ShadowStyle& style) {
    QImage result = shadowOf(picture, style);
    if (result.isNull())
        return result;
    const int margin = shadowMargin(style);
    QPainter(&result).drawImage(margin, margin, picture);
    return result;
}

} // namespace zelmo
