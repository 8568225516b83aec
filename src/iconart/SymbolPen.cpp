#include "iconart/SymbolPen.h"

#include <QLineF>
#include <QPainterPathStroker>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>

namespace zelmo {

namespace {

constexpr std::array<double, fontWeightCount> lineWidths{0.9, 1.15, 1.45, 1.8, 2.1, 2.4, 2.7, 3.05, 3.4};
constexpr double lightest = lineWidths.front();
constexpr double regular = lineWidths[static_cast<std::size_t>(FontWeight::regular)];

// Where paths are cut, joined or prepared, straight lines take the place of their curves, half a unit off at most.
// They are made so many times larger for that, so that no corner shows.
constexpr double magnification = 32;

QPainterPath scaled(const QPainterPath& path, double factor) {
    return QTransform::fromScale(factor, factor).map(path);
}

bool isClockwise(const QPolygonF& polygon) {
    double doubledArea = 0;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF from = polygon[i];
        const QPointF to = polygon[(i + 1) % polygon.size()];
        doubledArea += from.x() * to.y() - to.x() * from.y();
    }
    return doubledArea > 0;
}

} // namespace

SymbolPen::SymbolPen(FontWeight weight) : m_line(lineWidths[static_cast<std::size_t>(weight)]) {}

double SymbolPen::fineLine() const {
    return m_line <= regular ? m_line : regular + 0.6 * (m_line - regular);
}

double SymbolPen::slimLine() const {
    return lightest + 0.45 * (m_line - lightest);
}

double SymbolPen::cut() const {
    return 1.3 + 0.4 * (m_line - lightest);
}

double SymbolPen::growth() const {
    return 0.25 * (m_line - regular);
}

QPainterPath SymbolPen::along(const QPainterPath& path, double width) {
    QPainterPathStroker stroker;
    stroker.setWidth(width * magnification);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return scaled(stroker.createStroke(scaled(path, magnification)).simplified(), 1 / magnification);
}

QPainterPath SymbolPen::along(const QPolygonF& points, double width) {
    QPainterPath path;
    path.addPolygon(points);
    return along(path, width);
}

QPainterPath SymbolPen::disc(QPointF middle, double radius) {
    QPainterPath path;
    path.addEllipse(middle, radius, radius);
    return path;
}

QPainterPath SymbolPen::ring(QPointF middle, double radius, double width) {
    QPainterPath path = disc(middle, radius);
    path.addEllipse(middle, radius - width, radius - width);
    return path;
}

QPainterPath SymbolPen::roundedRectangle(const QRectF& rectangle, double radius) {
    QPainterPath path;
    path.addRoundedRect(rectangle, radius, radius);
    return path;
}

QPainterPath SymbolPen::roundedPolygon(const QPolygonF& points, double radius) {
    QPainterPath path;
    const qsizetype count = points.size();
    for (qsizetype i = 0; i < count; ++i) {
        const QLineF before(points[i], points[(i + count - 1) % count]);
        const QLineF after(points[i], points[(i + 1) % count]);
        const double reach = std::min({radius, before.length() / 2, after.length() / 2});
        const QPointF start = before.pointAt(reach / before.length());
        if (i == 0)
            path.moveTo(start);
        else
            path.lineTo(start);
        path.quadTo(points[i], after.pointAt(reach / after.length()));
    }
    path.closeSubpath();
    return path;
}

QPainterPath SymbolPen::both(const QPainterPath& one, const QPainterPath& other) {
    return scaled(scaled(one, magnification).united(scaled(other, magnification)), 1 / magnification);
}

QPainterPath SymbolPen::pierced(QPainterPath shape, const QPainterPath& hole) {
    shape.addPath(hole);
    return shape;
}

QPainterPath SymbolPen::without(const QPainterPath& shape, const QPainterPath& other) {
    return scaled(scaled(shape, magnification).subtracted(scaled(other, magnification)), 1 / magnification);
}

QPainterPath SymbolPen::prepared(const QPainterPath& path) {
    const QList<QPolygonF> outlines = path.toSubpathPolygons(QTransform::fromScale(magnification, magnification));
    QPainterPath result;
    for (const QPolygonF& outline : outlines) {
        const auto around = std::ranges::count_if(outlines, [&outline](const QPolygonF& other) {
            return &other != &outline && other.containsPoint(outline.front(), Qt::OddEvenFill);
        });
        const bool isHole = around % 2 == 1;
        QPolygonF directed = outline;
        if (isClockwise(directed) == isHole)
            std::ranges::reverse(directed);
        result.addPolygon(directed);
    }
    return scaled(result, 1 / magnification);
}

QPainterPath SymbolPen::star(QPointF middle, double radius) const {
    // Each ray ends in half a disc rather than in a point that fades away.
    const double tip = std::min(0.3 + 0.1 * m_line, 0.12 * radius);
    const double reach = radius - tip;
    // How far the curves between two rays stay away from the middle.
    const double waist = 0.2 + reach * (0.05 * m_line - 0.01);
    const std::array<QPointF, 4> rays{QPointF(0, -1), QPointF(1, 0), QPointF(0, 1), QPointF(-1, 0)};
    QPainterPath path(middle + reach * rays[0] + tip * rays[3]);
    for (std::size_t i = 0; i < rays.size(); ++i) {
        const QPointF ray = rays[i];
        const QPointF next = rays[(i + 1) % rays.size()];
        const QPointF end = middle + reach * ray;
        path.arcTo(QRectF(end - QPointF(tip, tip), end + QPointF(tip, tip)), 180 - 90 * static_cast<double>(i), -180);
        path.quadTo(middle + waist * (ray + next), middle + reach * next + tip * ray);
    }
    path.closeSubpath();
    return path;
}

} // namespace zelmo
