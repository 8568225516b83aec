#include "iconart/SymbolDrawings.h"
#include "iconart/SymbolPen.h"

#include <algorithm>
#include <numbers>

namespace zelmo {

QPainterPath checkmarkDrawing(const SymbolPen& pen) {
    const double half = pen.line() / 2;
    return SymbolPen::along(QPolygonF{{3 + half, 13}, {9.2, 19.2 - half}, {21 - half, 4.8 + half}}, pen.line());
}

QPainterPath checkmarkCircleDrawing(const SymbolPen& pen) {
    const double line = pen.fineLine();
    // The mark keeps clear of the circle at every weight.
    const double room = pen.plateRadius() - line - 1.2 - line / 2;
    const double size = std::min(1.0, room / 5.4);
    const auto at = [size](double x, double y) { return SymbolPen::center + size * QPointF(x, y); };
    QPainterPath path = SymbolPen::ring(SymbolPen::center, pen.plateRadius(), line);
    path.addPath(SymbolPen::along(QPolygonF{at(-4.2, 0.4), at(-1.2, 3.4), at(4.2, -3.4)}, line));
    return path;
}

QPainterPath circleDrawing(const SymbolPen& pen) {
    return SymbolPen::ring(SymbolPen::center, pen.plateRadius(), pen.line());
}

QPainterPath codeDrawing(const SymbolPen& pen) {
    const double line = pen.fineLine();
    const double left = 1.4 + line / 2;
    const double right = SymbolPen::gridSide - left;
    const double depth = 5.2 - 0.5 * line;
    QPainterPath path = SymbolPen::along(QPolygonF{{left + depth, 7.2}, {left, 12}, {left + depth, 16.8}}, line);
    path.addPath(SymbolPen::along(QPolygonF{{right - depth, 7.2}, {right, 12}, {right - depth, 16.8}}, line));
    path.addPath(SymbolPen::along(QPolygonF{{13.6, 5}, {10.4, 19}}, line));
    return path;
}

QPainterPath magnifyingGlassDrawing(const SymbolPen& pen) {
    const QPointF middle(10.2, 10.2);
    const double radius = 7.6 + pen.growth();
    const double half = pen.line() / 2;
    const double start = middle.x() + (radius - half) / std::numbers::sqrt2;
    const double end = 21.4 - half;
    return SymbolPen::both(SymbolPen::ring(middle, radius, pen.line()),
                           SymbolPen::along(QPolygonF{{start, start}, {end, end}}, pen.line()));
}

QPainterPath crossDrawing(const SymbolPen& pen) {
    const double start = 4 + pen.line() / 2;
    const double end = SymbolPen::gridSide - start;
    return SymbolPen::both(SymbolPen::along(QPolygonF{{start, start}, {end, end}}, pen.line()),
                           SymbolPen::along(QPolygonF{{start, end}, {end, start}}, pen.line()));
}

} // namespace zelmo
