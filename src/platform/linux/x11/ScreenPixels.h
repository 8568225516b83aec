#pragma once

#include <QRect>
#include <QScreen>

namespace zelmo {

// What a screen covers in the X server's pixels. A screen's origin is in pixels at every scale, its size is in points,
// so that at a scale that does not divide it the size may be off by one.
inline QRect pixelsOf(const QScreen& screen) {
    const QRect geometry = screen.geometry();
    return {geometry.topLeft(), (QSizeF(geometry.size()) * screen.devicePixelRatio()).toSize()};
}

} // namespace zelmo
