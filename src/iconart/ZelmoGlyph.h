#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace zelmo {

enum class GlyphState { inactive, active };

// The program's mark for the menu bar: nine small cells, readable at 18 points on light and dark panels. A value.
class ZelmoGlyph {
public:
    explicit ZelmoGlyph(GlyphState state) : m_state(state) {}

    // Rows from the top and columns from the left, from 0; any other has the last cell's colour.
    QColor tileColor(int row, int column) const;
    // Into the middle of the rectangle, as large as fits.
    void paint(QPainter& painter, const QRectF& rectangle) const;

private:
    GlyphState m_state;
};

// The same mark on coloured ground: without edges and shadows, its white cells brighter. A value.
class ZelmoBareGlyph {
public:
    explicit ZelmoBareGlyph(GlyphState state) : m_state(state) {}

    QColor tileColor(int row, int column) const;
    void paint(QPainter& painter, const QRectF& rectangle) const;

private:
    GlyphState m_state;
};

} // namespace zelmo
