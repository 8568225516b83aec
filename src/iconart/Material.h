#pragma once

#include "iconart/SmallPicture.h"

#include <QColor>

namespace zelmo {

// What lies behind a translucent surface, as it looks through it. Lengths are points.
struct MaterialStyle {
    double blurRadius = 0; // twice the standard deviation
    double saturation = 1; // 1 leaves colours as they are
    QColor tint = Qt::transparent;

    // Thin enough for the colours of the desktop to come through, dark enough for light text.
    static MaterialStyle ultraThin();
};

// How many times smaller a picture may be made before the material blurs it, without that being seen. A point has
// `scale` of its pixels.
int materialReduction(double scale, const MaterialStyle& style);

// The picture blurred, its colours strengthened and the tint laid over it. As large and as opaque as the picture; its
// edges are continued outwards, so that nothing dark comes in from beyond. Any thread.
QImage throughMaterial(const QImage& behind, double scale, const MaterialStyle& style);
// The same of one that is small already; the scale is that of the whole.
SmallPicture throughMaterial(const SmallPicture& behind, double scale, const MaterialStyle& style);

} // namespace zelmo
