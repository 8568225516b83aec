#include "menubar/PanelScreen.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace zelmo {

namespace {

// A screen's origin is in pixels at every scale, its size is in points.
QRect pixelsOf(const QScreen& screen) {
    const QRect points = screen.geometry();
    return {points.topLeft(), (QSizeF(points.size()) * screen.devicePixelRatio()).toSize()};
}

QScreen* screenAtPixel(QPoint pixel) {
    for (QScreen* screen : QGuiApplication::screens()) {
        if (pixelsOf(*screen).contains(pixel))
            return screen;
    }
    return nullptr;
}

QRect pointsOf(const QScreen& screen, const QRect& pixels) {
    const QPoint origin = screen.geometry().topLeft();
    const double scale = screen.devicePixelRatio();
    return {origin + (QPointF(pixels.topLeft() - origin) / scale).toPoint(), (QSizeF(pixels.size()) / scale).toSize()};
}

} // namespace

PanelScreen PanelScreen::of(const std::optional<QRect>& place) {
    PanelScreen found;
    // Hosts that don't know where their items are say that they are at the origin.
    const bool isTold = place && !(place->isEmpty() && place->topLeft().isNull());
    if (isTold)
        found.screen = screenAtPixel(place->center());
    if (found.screen) {
        found.surroundings.anchor = pointsOf(*found.screen, *place);
    } else {
        found.surroundings.anchor = QRect(QCursor::pos(), QSize(0, 0));
        found.screen = QGuiApplication::screenAt(QCursor::pos());
    }
    if (!found.screen)
        found.screen = QGuiApplication::primaryScreen();
    if (found.screen) {
        found.surroundings.screen = found.screen->geometry();
        found.surroundings.workArea = found.screen->availableGeometry();
    }
    return found;
}

QRect PanelScreen::pixels(const QRect& points) const {
    const QPoint origin = screen->geometry().topLeft();
    const double scale = screen->devicePixelRatio();
    return {origin + (QPointF(points.topLeft() - origin) * scale).toPoint(), (QSizeF(points.size()) * scale).toSize()};
}

} // namespace zelmo
