#pragma once

#include "iconart/Shadow.h"

#include <QRectF>

#include <functional>

class QPainter;

namespace zelmo {

// What `draw` paints goes over its own shadow onto the painter, whose scale the shadow's lengths follow. It must stay
// near the rectangle: within a quarter of its longer side. Any thread.
void paintWithShadow(QPainter& painter, const QRectF& rectangle, const ShadowStyle& shadow,
                     const std::function<void(QPainter& layer)>& draw);

} // namespace zelmo
