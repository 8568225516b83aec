#include "menubar/ZelmoMenuLabel.h"

#include <QPainter>

#include <cmath>

namespace zelmo {

void ZelmoMenuLabel::paint(QPainter& painter, const QRectF& place) const {
    constexpr double side = MenuBarMetrics::labelSide();
    const double scale = std::min(place.width(), place.height()) / side;
    if (scale <= 0)
        return;
    painter.save();
    painter.translate(place.center());
    painter.scale(scale, scale);
    ZelmoGlyph(m_active).paint(painter, QRectF(-side / 2, -side / 2, side, side));
    painter.restore();
}

QImage ZelmoMenuLabel::image(double scale) const {
    const int pixels = static_cast<int>(std::lround(MenuBarMetrics::labelSide() * scale));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter, QRectF(image.rect()));
    return image;
}

} // namespace zelmo
