#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QRect>

#include <vector>

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
    // The pixels of a part of the surface.
    QImage part(const QRect& area) const;

private:
    // A row's colours from its column `first` on, so many of them.
    std::vector<QRgb> strip(int first, int count) const;

    QList<QColor> m_stops;
    QSize m_size;
};

} // namespace zelmo
