#pragma once

#include "appearance/FontDesign.h"

#include <QPainterPath>
#include <QPolygonF>

namespace zelmo {

// What all drawings of symbols share: a grid of 24 units, the widths that belong to a weight, and the shapes that
// recur. Round symbols are about 20 units wide, square ones about 18. Every path is an area to be filled. A value; any
// thread.
class SymbolPen {
public:
    static constexpr double gridSide = 24;
    static constexpr QPointF center{gridSide / 2, gridSide / 2};

    explicit SymbolPen(FontWeight weight);

    // The width of a line on its own.
    double line() const { return m_line; }
    // The width of a line that has others close by, and would run into them if it grew as fast.
    double fineLine() const;
    // The width of the lines around small hollow parts, which must not fill up.
    double slimLine() const;
    // The width of a line that is taken out of a solid shape.
    double cut() const;
    // How far a solid shape's edge lies outside of where it is at the regular weight.
    double growth() const;
    // The space that stays between two parts of a symbol.
    static constexpr double gap = 1.6;

    // A line along the path, with round ends and joins.
    static QPainterPath along(const QPainterPath& path, double width);
    static QPainterPath along(const QPolygonF& points, double width);
    static QPainterPath disc(QPointF middle, double radius);
    // A circle whose line ends at `radius`.
    static QPainterPath ring(QPointF middle, double radius, double width);
    static QPainterPath roundedRectangle(const QRectF& rectangle, double radius);
    // All that either path covers.
    static QPainterPath both(const QPainterPath& one, const QPainterPath& other);
    // A shape with a hole that lies wholly within it.
    static QPainterPath pierced(QPainterPath shape, const QPainterPath& hole);
    // What is left of a shape without what the other covers, wherever that lies.
    static QPainterPath without(const QPainterPath& shape, const QPainterPath& other);
    // Each corner is rounded off over at most half of its shorter edge.
    static QPainterPath roundedPolygon(const QPolygonF& points, double radius);
    // The same area as the painter fills it best: with short straight lines for its curves, as the painter's own are
    // too long for small circles, and with holes that run against the outlines around them, as the painter takes a
    // pixel that both of them cross for too full or too empty otherwise.
    static QPainterPath prepared(const QPainterPath& path);
    // A star of four rays.
    QPainterPath star(QPointF middle, double radius) const;
    // The disc that solid round symbols are cut out of.
    QPainterPath plate() const { return disc(center, plateRadius()); }
    double plateRadius() const { return 10 + growth(); }

private:
    double m_line;
};

} // namespace zelmo
