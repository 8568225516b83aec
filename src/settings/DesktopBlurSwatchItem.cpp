#include "settings/DesktopBlurSwatchItem.h"

#include "iconart/ContinuousRectangle.h"
#include "iconart/Material.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace zelmo {

namespace {

// Of the screen that the swatch stands for, in its points: what the material does is as small as the desktop.
constexpr double screenWidth = 1280;
constexpr double barHeight = 28;
constexpr double windowRadius = 14;
constexpr double titleHeight = 44;

void paintWindow(QPainter& painter, const QRectF& place, const QColor& title, const QColor& content) {
    QPainterPath outline;
    outline.addRoundedRect(place, windowRadius, windowRadius);
    painter.fillPath(outline, content);
    painter.setClipPath(outline);
    painter.fillRect(QRectF(place.topLeft(), QSizeF(place.width(), titleHeight)), title);
    painter.setClipping(false);
}

QImage drawnDesktop(QSize pixels) {
    QImage desktop(pixels, QImage::Format_RGB32);
    QPainter painter(&desktop);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = pixels.width() / screenWidth;
    const QSizeF screen = QSizeF(pixels) / scale;
    painter.scale(scale, scale);
    QLinearGradient wallpaper(QPointF(), QPointF(screen.width(), screen.height()));
    wallpaper.setColorAt(0, QColor(0x2b, 0x5c, 0xd6));
    wallpaper.setColorAt(0.5, QColor(0x9a, 0x4f, 0xc4));
    wallpaper.setColorAt(1, QColor(0xff, 0x9a, 0x6c));
    painter.fillRect(QRectF(QPointF(), screen), wallpaper);
    painter.fillRect(QRectF(0, 0, screen.width(), barHeight), QColor(0x1a, 0x1c, 0x26));
    paintWindow(painter, {110, 130, 560, 420}, QColor(0xd5, 0xd8, 0xe0), QColor(0xf6, 0xf7, 0xfa));
    paintWindow(painter, {600, 270, 540, 360}, QColor(0x2c, 0x31, 0x3f), QColor(0x16, 0x19, 0x22));
    return desktop;
}

} // namespace

QImage blurredDesktop(QSize pixels) {
    if (pixels.isEmpty())
        return {};
    return throughMaterial(drawnDesktop(pixels), pixels.width() / screenWidth, MaterialStyle::ultraThin());
}

DesktopBlurSwatchItem::DesktopBlurSwatchItem() {
    connect(this, &DesktopBlurSwatchItem::changed, this, [this] { update(); });
}

void DesktopBlurSwatchItem::paint(QPainter* painter) {
    const double scale = painter->device()->devicePixelRatioF() * painter->transform().m11();
    QBrush brush(blurredDesktop((size() * scale).toSize()));
    brush.setTransform(QTransform::fromScale(1 / scale, 1 / scale));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(continuousRectangle(boundingRect(), m_radius), brush);
}

} // namespace zelmo
