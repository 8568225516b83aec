#pragma once

#include <QColor>
#include <QImage>
#include <QList>

namespace zelmo {

// An opaque gradient from the top-leading to the bottom-trailing corner of a surface. Each row of it
// is the row above moved on a little, so a band of a few rows, somewhat longer than the surface is
// wide, holds all of it: every band of the surface is a part of that one. Spares a picture as large as
// the surface. Lengths are pixels. A value; any thread.
class DiagonalGradient {
public:
    static constexpr int bandHeight = 64;

    // The stops are evenly spaced; no stop is black, one fills everything.
    DiagonalGradient(const QList<QColor>& stops, QSize size);

    // `bandHeight` rows.
    QImage band() const;
    // The first column of `band()` that belongs on the surface's left edge, for the band that starts at row `y`.
    int bandStart(int y) const;

private:
    QList<QColor> m_stops;
    QSize m_size;
};

} // namespace zelmo
