#pragma once

#include "iconart/Shadow.h"

#include <QRectF>

#include <functional>

class QPainter;

namespace zelmo {

// What `draw` paints into the rectangle goes over its own shadow onto the painter, whose scale the shadow's lengths
// follow. Any thread.
void paintWithShadow(QPainter& painter, const QRectF& rectangle, const ShadowStyle& shadow,
                     const std::function<void(QPainter& layer)>& draw);

} // namespace zelmo
