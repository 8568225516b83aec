#include "iconart/ZelmoIconFactory.h"

#include "iconart/ZelmoIconCanvas.h"

#include <QPainter>

namespace zelmo {

QImage ZelmoIconFactory::appIcon(int points, const Preferences& preferences, std::optional<AppIconStyle> style) {
    const int pixels = static_cast<int>(points * scale);
    QImage image(std::max(pixels, 0), std::max(pixels, 0), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    ZelmoIconCanvas(style.value_or(chosenAppIconStyle(preferences))).paint(painter, QRectF(0, 0, points, points));
    return image;
}

} // namespace zelmo
