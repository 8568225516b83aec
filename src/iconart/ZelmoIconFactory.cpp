#include "iconart/ZelmoIconFactory.h"

#include <QLinearGradient>
#include <QPainter>

namespace zelmo {

namespace {

// Lengths are fractions of the icon's side.
constexpr double plateInset = 0.06;
constexpr double plateRadius = 0.21;
constexpr int tiles = 3;
constexpr double tileSide = 0.16;
constexpr double tileStep = 0.215;
constexpr double tileRadius = 0.05;

} // namespace

QImage ZelmoIconFactory::appIcon(int pixels) {
    if (pixels <= 0)
        return {};
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(pixels, pixels);
    const QRectF plate(plateInset, plateInset, 1 - 2 * plateInset, 1 - 2 * plateInset);
    QLinearGradient fill(plate.topLeft(), plate.bottomRight());
    fill.setColorAt(0, QColor::fromRgbF(0.16F, 0.13F, 0.36F));
    fill.setColorAt(1, QColor::fromRgbF(0.71F, 0.33F, 0.47F));
    painter.setBrush(fill);
    painter.drawRoundedRect(plate, plateRadius, plateRadius);
    const double first = (1 - (tiles - 1) * tileStep - tileSide) / 2;
    for (int row = 0; row < tiles; ++row) {
        for (int column = 0; column < tiles; ++column) {
            const float hue = static_cast<float>(row * tiles + column) / (tiles * tiles);
            painter.setBrush(QColor::fromHsvF(hue, 0.45F, 1));
            painter.drawRoundedRect(QRectF(first + column * tileStep, first + row * tileStep, tileSide, tileSide),
                                    tileRadius, tileRadius);
        }
    }
    return image;
}

} // namespace zelmo
