#include "iconart/SymbolDrawings.h"
#include "iconart/SymbolPen.h"

#include <array>
#include <cmath>
#include <numbers>

namespace zelmo {

namespace {

struct Bars {
    std::array<QRectF, 3> rectangles;
    double radius;
};

Bars bars(double growth) {
    constexpr std::array heights{9.5, 18.5, 13.5};
    constexpr double bottom = 21.25;
    constexpr double width = 5.4;
    constexpr double step = 7.1;
    Bars bars{.rectangles = {}, .radius = 1.5};
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const double left = SymbolPen::center.x() - width / 2 + step * (static_cast<double>(i) - 1);
        bars.rectangles[i] =
            QRectF(left, bottom - heights[i], width, heights[i]).adjusted(-growth / 2, -growth, growth / 2, growth);
    }
    return bars;
}

QPainterPath grid(int count, double side, double space, double radius) {
    const double cell = (side - (count - 1) * space) / count;
    const double start = (SymbolPen::gridSide - side) / 2;
    QPainterPath path;
    for (int row = 0; row < count; ++row) {
        for (int column = 0; column < count; ++column)
            path.addRoundedRect(QRectF(start + column * (cell + space), start + row * (cell + space), cell, cell),
                                radius, radius);
    }
    return path;
}

} // namespace

QPainterPath barChartDrawing(const SymbolPen& pen) {
    const double line = pen.slimLine();
    QPainterPath path;
    const auto [rectangles, radius] = bars(pen.growth());
    for (const QRectF& bar : rectangles) {
        path.addRoundedRect(bar, radius, radius);
        const double inner = std::max(0.3, radius - line);
        path.addRoundedRect(bar.adjusted(line, line, -line, -line), inner, inner);
    }
    return path;
}

QPainterPath solidBarChartDrawing(const SymbolPen& pen) {
    QPainterPath path;
    const auto [rectangles, radius] = bars(pen.growth());
    for (const QRectF& bar : rectangles)
        path.addRoundedRect(bar, radius, radius);
    return path;
}

QPainterPath boltDiscDrawing(const SymbolPen& pen) {
    // The same turned by half a turn.
    const auto at = [](double x, double y) { return SymbolPen::center + QPointF(x, y); };
    const QPolygonF bolt{at(-7.2, 2), at(1.4, -4.6), at(1.4, -0.7), at(7.2, -2), at(-1.4, 4.6), at(-1.4, 0.7)};
    return SymbolPen::pierced(pen.plate(), SymbolPen::roundedPolygon(bolt, 0.8));
}

QPainterPath checkmarkDiscDrawing(const SymbolPen& pen) {
    const auto at = [](double x, double y) { return SymbolPen::center + QPointF(x, y); };
    return SymbolPen::pierced(
        pen.plate(), SymbolPen::along(QPolygonF{at(-4.4, 0.4), at(-1.3, 3.5), at(4.4, -3.5)}, pen.cut() + 0.3));
}

QPainterPath hexagonOfDiscsDrawing(const SymbolPen& pen) {
    constexpr double distance = 7.1;
    const double radius = 2.75 + pen.growth() * 0.7;
    QPainterPath path = SymbolPen::disc(SymbolPen::center, radius);
    for (int i = 0; i < 6; ++i) {
        const double angle = i * std::numbers::pi / 3;
        path.addPath(SymbolPen::disc(SymbolPen::center + distance * QPointF(std::cos(angle), std::sin(angle)), radius));
    }
    return path;
}

QPainterPath playDiscDrawing(const SymbolPen& pen) {
    // Moved to the right, as a triangle's weight lies on its left.
    return SymbolPen::pierced(pen.plate(),
                              SymbolPen::roundedPolygon(QPolygonF{{8.8, 6.9}, {17.6, 12}, {8.8, 17.1}}, 1.4));
}

QPainterPath sparkleDrawing(const SymbolPen& pen) {
    return pen.star(SymbolPen::center, 10.4);
}

QPainterPath sparklesDrawing(const SymbolPen& pen) {
    QPainterPath path = pen.star({9.4, 13.4}, 8);
    path.addPath(pen.star({18.6, 5.4}, 4));
    path.addPath(pen.star({18.8, 19}, 3));
    return path;
}

QPainterPath fourSquaresDrawing(const SymbolPen& pen) {
    return grid(2, 18 + 2 * pen.growth(), 2.2, 2);
}

QPainterPath nineSquaresDrawing(const SymbolPen& pen) {
    return grid(3, 18.6 + 2 * pen.growth(), 1.9, 1.2);
}

} // namespace zelmo
