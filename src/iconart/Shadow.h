#pragma once

#include <QImage>

namespace zelmo {

// A drop shadow in black. Lengths are pixels.
struct ShadowStyle {
    double opacity = 0;
    double radius = 0; // twice the standard deviation of the blur
    double offset = 0; // downwards

    friend bool operator==(const ShadowStyle&, const ShadowStyle&) = default;
};

// How far the shadow reaches beyond the picture on every side, in whole pixels.
int shadowMargin(const ShadowStyle& style);

// The shadow of a picture alone, on a canvas larger by the margin on every side. Premultiplied ARGB32. Any thread.
QImage shadowOf(const QImage& picture, const ShadowStyle& style);
// The picture over its shadow, on a canvas larger by the margin on every side. Premultiplied ARGB32. Any thread.
QImage withShadow(const QImage& picture, const ShadowStyle& style);

} // namespace zelmo
