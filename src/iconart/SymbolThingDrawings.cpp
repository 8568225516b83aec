#include "iconart/SymbolDrawings.h"
#include "iconart/SymbolPen.h"

#include <QTransform>

#include <cmath>
#include <numbers>

namespace zelmo {

namespace {

// A speech bubble whose tail hangs from the left end of its lower edge.
QPainterPath bubble(const QRectF& body, double radius, double tail) {
    const double left = body.left() + 0.5 * radius;
    const double bottom = body.bottom();
    const QPolygonF corner{{left, bottom - radius}, {left - 0.3, bottom + tail}, {left + 2.2 * tail, bottom - 0.6}};
    return SymbolPen::both(SymbolPen::roundedRectangle(body, radius), SymbolPen::roundedPolygon(corner, 1));
}

// A gear's outline: teeth of equal width, a little slimmer at their tips.
QPainterPath cogwheel(double radius, double root, int teeth) {
    const double pitch = 2 * std::numbers::pi / teeth;
    QPolygonF points;
    for (int i = 0; i < teeth; ++i) {
        const auto add = [&](double distance, double part) {
            const double angle = (i + part) * pitch - std::numbers::pi / 2;
            points << SymbolPen::center + distance * QPointF(std::cos(angle), std::sin(angle));
        };
        add(root, -0.29);
        add(radius, -0.2);
        add(radius, 0.2);
        add(root, 0.29);
    }
    return SymbolPen::roundedPolygon(points, 0.75);
}

// Lays a drawing along the x axis from the lower left corner to the upper right one.
QPainterPath diagonal(const QPainterPath& path, QPointF start) {
    return QTransform().translate(start.x(), start.y()).rotate(-45).map(path);
}

} // namespace

QPainterPath bookDrawing(const SymbolPen& pen) {
    const double growth = pen.growth();
    const double left = 4.4 - growth;
    const double right = 19.6 + growth;
    const double top = 2.4 - growth;
    const double bottom = 21.6 + growth;
    constexpr double corner = 3.6;
    constexpr double page = 1;
    QPainterPath cover(QPointF(right, top + page));
    cover.quadTo(right, top, right - page, top);
    cover.lineTo(left + corner, top);
    cover.quadTo(left, top, left, top + corner);
    cover.lineTo(left, bottom - corner);
    cover.quadTo(left, bottom, left + corner, bottom);
    cover.lineTo(right - page, bottom);
    cover.quadTo(right, bottom, right, bottom - page);
    cover.closeSubpath();
    // The pages' edge, between the cover and its back, is open on the right.
    const double cut = pen.cut() + 0.5;
    QPainterPath gaps = SymbolPen::roundedRectangle(QRectF(7, 18 - cut / 2, 20, cut), cut / 2);
    gaps.addPath(SymbolPen::along(QPolygonF{{9.4, 7.4}, {15, 7.4}}, pen.cut()));
    return SymbolPen::without(cover, gaps);
}

QPainterPath bubblesDrawing(const SymbolPen& pen) {
    const double growth = pen.growth();
    const auto grown = [growth](const QRectF& body) { return body.adjusted(-growth, -growth, growth, growth); };
    const QPainterPath left = bubble(grown(QRectF(1.8, 3.4, 14, 10.4)), 4.6, 3);
    const QTransform mirror(-1, 0, 0, 1, SymbolPen::gridSide, 0);
    const QRectF front = grown(QRectF(1.8, 9.6, 12, 8.8));
    const QPainterPath right = mirror.map(bubble(front, 4.2, 2.8));
    constexpr double gap = SymbolPen::gap;
    const QPainterPath clearing =
        mirror.map(SymbolPen::roundedRectangle(front.adjusted(-gap, -gap, gap, gap), 4.2 + gap));
    QPainterPath path = SymbolPen::without(left, clearing);
    path.addPath(right);
    return path;
}

QPainterPath gearDrawing(const SymbolPen& pen) {
    const double growth = pen.growth();
    return SymbolPen::pierced(cogwheel(10.4 + growth, 7.9 + growth, 8),
                              SymbolPen::disc(SymbolPen::center, 3.7 - 0.7 * growth));
}

QPainterPath keyboardDrawing(const SymbolPen& pen) {
    const double growth = pen.growth();
    QPainterPath keys;
    constexpr double key = 2.2;
    constexpr double step = 4.2;
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 4; ++column)
            keys.addRoundedRect(QRectF(4.6 + column * step, 7.4 + row * 3.6, key, key), 0.5, 0.5);
    }
    keys.addRoundedRect(QRectF(7.4, 14.6, 9.2, key - 0.2), 0.7, 0.7);
    const QRectF board = QRectF(1.8, 5, 20.4, 14).adjusted(-growth, -growth, growth, growth);
    return SymbolPen::pierced(SymbolPen::roundedRectangle(board, 3), keys);
}

QPainterPath paintbrushDrawing(const SymbolPen& pen) {
    const double growth = pen.growth();
    const double belly = 4.3 + growth;
    QPainterPath tuft(QPointF(0, -0.4));
    tuft.cubicTo(2.6, -0.9, 3, -belly, 6.4, -belly);
    tuft.cubicTo(7.8, -belly, 8.8, -3.5 - growth, 9.2, -3 - growth);
    tuft.lineTo(9.2, 3 + growth);
    tuft.cubicTo(8.8, 3.5 + growth, 7.8, belly, 6.4, belly);
    tuft.cubicTo(3, belly, 2.6, 0.9, 0, 0.4);
    tuft.quadTo(-0.4, 0, 0, -0.4);
    QPainterPath handle(QPointF(10.9, -2.8 - growth));
    handle.lineTo(24.2, -1.3 - growth / 2);
    handle.cubicTo(25.8, -1, 25.8, 1, 24.2, 1.3 + growth / 2);
    handle.lineTo(10.9, 2.8 + growth);
    handle.closeSubpath();
    tuft.addPath(handle);
    return diagonal(tuft, {2.8, 21.2});
}

QPainterPath trashDrawing(const SymbolPen& pen) {
    const double line = pen.slimLine();
    const double growth = pen.growth();
    constexpr double lid = 6;
    const double handle = 1.9 + line / 2;
    const QPainterPath cover =
        SymbolPen::both(SymbolPen::along(QPolygonF{{3.8, lid}, {20.2, lid}}, line),
                        SymbolPen::along(QPolygonF{{9, lid}, {9, handle}, {15, handle}, {15, lid}}, line));
    const double top = lid + line / 2 + 1.4;
    const QPolygonF body{{5.3 - growth, top}, {18.7 + growth, top}, {17.5 + growth, 22}, {6.5 - growth, 22}};
    QPainterPath slots = SymbolPen::along(QPolygonF{{9.8, 11.4}, {10.1, 18.8}}, pen.cut());
    slots.addPath(SymbolPen::along(QPolygonF{{14.2, 11.4}, {13.9, 18.8}}, pen.cut()));
    QPainterPath path = SymbolPen::pierced(SymbolPen::roundedPolygon(body, 2.2), slots);
    path.addPath(cover);
    return path;
}

QPainterPath wandDrawing(const SymbolPen& pen) {
    const double half = 0.7 + 0.36 * pen.line();
    QPainterPath stick;
    stick.addRoundedRect(QRectF(0, -half, 11.2, 2 * half), half, half);
    stick.addRoundedRect(QRectF(12.6, -half, 4.4, 2 * half), 1, 1);
    QPainterPath path = diagonal(stick, {2.5, 21.7});
    path.addPath(pen.star({18.2, 5.5}, 3.8));
    path.addPath(pen.star({7.9, 5.7}, 3.4));
    path.addPath(pen.star({18.5, 16.5}, 3.4));
    return path;
}

} // namespace zelmo
