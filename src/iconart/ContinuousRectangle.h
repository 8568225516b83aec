#pragma once

#include <QPainterPath>

namespace zelmo {

// A rectangle whose corners are parts of superellipses: its curvature grows from nothing at the sides, where a circular
// corner would jump. Half-way round each corner it meets the circular one of that radius. A radius of half the shorter
// side makes a capsule; a larger one counts as that.
QPainterPath continuousRectangle(const QRectF& rectangle, double radius);
// How far its corners reach along the sides, at most.
double continuousReach(double radius);

} // namespace zelmo
