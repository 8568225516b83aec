#include "iconart/FallbackIcon.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace zelmo {

namespace {

// Lengths are fractions of the icon's side.
constexpr double plateInset = 0.06;
constexpr double plateRadius = 0.21;
constexpr double windowInset = 0.27;
constexpr double windowRadius = 0.06;
constexpr double titleBarHeight = 0.12;
constexpr double dotRadius = 0.018;
constexpr double strokeWidth = 0.012;

} // namespace

QImage fallbackIcon(int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels, pixels);

    const QRectF plate(plateInset, plateInset, 1 - 2 * plateInset, 1 - 2 * plateInset);
    QLinearGradient fill(plate.topLeft(), plate.bottomRight());
    fill.setColorAt(0, QColor::fromRgbF(0.78F, 0.83F, 0.93F));
    fill.setColorAt(1, QColor::fromRgbF(0.42F, 0.48F, 0.64F));
    painter.setPen(QPen(QColor::fromRgbF(1, 1, 1, 0.45F), strokeWidth));
    painter.setBrush(fill);
    painter.drawRoundedRect(plate, plateRadius, plateRadius);

    const QRectF window(windowInset, windowInset, 1 - 2 * windowInset, 1 - 2 * windowInset);
    QPainterPath outline;
    outline.addRoundedRect(window, windowRadius, windowRadius);
    painter.setPen(Qt::NoPen);
    painter.fillPath(outline, QColor::fromRgbF(1, 1, 1, 0.92F));
    painter.setClipPath(outline);
    painter.fillRect(QRectF(window.left(), window.top(), window.width(), titleBarHeight),
                     QColor::fromRgbF(0.30F, 0.36F, 0.52F));
    painter.setBrush(QColor::fromRgbF(1, 1, 1, 0.85F));
    for (int dot = 0; dot < 3; ++dot) {
        const double x = window.left() + titleBarHeight * (0.5 + 0.45 * dot);
        painter.drawEllipse(QPointF(x, window.top() + titleBarHeight / 2), dotRadius, dotRadius);
    }
    return image;
}

} // namespace zelmo
