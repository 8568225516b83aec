#pragma once

#include "catalog/AppIcon.h"

#include <QImage>

namespace zelmo {

// Turns what an application says of its icon into a picture. Called on several worker threads at
// once; implementations guard what they share.
class IconSource {
public:
    virtual ~IconSource() = default;

    // The picture in a square of `points` by `points` at `scale` pixels a point, its aspect kept and
    // centred, as premultiplied ARGB32. A null image when there is none, or it is damaged or beyond the limits.
    virtual QImage icon(const AppIcon& icon, int points, double scale) const = 0;
};

} // namespace zelmo
