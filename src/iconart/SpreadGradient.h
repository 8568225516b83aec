#pragma once

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QList>

namespace zelmo {

// Lays a gradient of two and more evenly spaced stops over a premultiplied ARGB32 picture, as opaque as a mask of its
// size (Alpha8) says. It runs along the way, in pixels, which is longer than none. A faint gradient has fewer steps of
// 8 bits than pixels: which of two a pixel gets is spread so evenly that no bands are to be seen. Any thread.
void spreadOver(QImage& image, const QImage& mask, const QList<QColor>& stops, const QLineF& wayInPixels);

} // namespace zelmo
