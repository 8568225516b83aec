#pragma once

#include "iconart/ZelmoGlyph.h"
#include "menubar/MenuBarMetrics.h"

#include <QImage>

namespace zelmo {

// What the status item shows: the glyph in a frame of 18 by 18 points. A value.
class ZelmoMenuLabel {
public:
    // Active while the wall is up.
    explicit ZelmoMenuLabel(GlyphState active) : m_active(active) {}

    GlyphState active() const { return m_active; }

    // The frame in the middle of the place, as large as fits.
    void paint(QPainter& painter, const QRectF& place) const;
    // The frame at so many pixels to the point.
    QImage image(double scale) const;

private:
    GlyphState m_active;
};

} // namespace zelmo
