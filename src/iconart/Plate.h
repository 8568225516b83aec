#pragma once

#include "iconart/Shadow.h"

#include <QColor>
#include <QList>
#include <QSizeF>

namespace zelmo {

enum class GradientDirection { diagonal, down, across }; // from the top-leading corner, the top, the leading side

// Evenly spaced stops; one fills everything, none paints nothing.
struct PlateColors {
    QList<QColor> stops{};
    GradientDirection direction = GradientDirection::diagonal;

    friend bool operator==(const PlateColors&, const PlateColors&) = default;
};

// What the interface's surfaces are made of: panels, cards, chips, badges. Lengths are points.
struct PlateStyle {
    double radius = 0; // of continuous corners; half the shorter side makes a capsule or a circle
    PlateColors fill{};
    PlateColors stroke{};
    double strokeWidth = 0; // inside the edge
    ShadowStyle shadow{};
    bool isMirrored = false; // the leading side is the right one

    friend bool operator==(const PlateStyle&, const PlateStyle&) = default;
};

std::size_t qHash(const PlateStyle& style, std::size_t seed = 0);

// How far the picture of such a plate reaches beyond the plate on every side, in pixels.
int plateMargin(const PlateStyle& style, double scale);
// A plate of this size in points at so many pixels to the point, with its margin. Null when there is nothing to see.
// Any thread.
QImage paintPlate(QSizeF size, double scale, const PlateStyle& style);
// The shadow alone of an opaque plate of so many pixels, on a canvas larger by the shadow's margin on every side. The
// radius is in pixels. Any thread.
QImage plateShadow(QSize pixels, double radius, const ShadowStyle& style);

} // namespace zelmo
