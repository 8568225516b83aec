#include "iconart/ContinuousRectangle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace zelmo {

namespace {

// How much further than the radius a corner reaches along the sides, where there is room.
constexpr double reachRatio = 1.5;
// So many straight pieces stay within a tenth of a pixel of the curve for corners of hundreds of pixels.
constexpr int pieces = 32;

struct Corner {
    double reach;
    double exponent;

    // From the corner's centre, which lies `reach` from both sides; at 0 on the one side, at 1 on the other.
    QPointF point(double way) const {
        const double angle = way * std::numbers::pi / 2;
        const double x = std::cos(angle);
        const double y = std::sin(angle);
        const double distance = reach / std::pow(std::pow(x, exponent) + std::pow(y, exponent), 1 / exponent);
        return {x * distance, y * distance};
    }
};

// With the exponent that brings the middle of the corner to where the circle has it.
Corner cornerFor(double radius, double room) {
    const double reach = std::min(reachRatio * radius, room);
    const double inset = radius * (1 - std::numbers::sqrt2 / 2);
    return {reach, std::numbers::ln2 / -std::log(1 - inset / reach)};
}

} // namespace

QPainterPath continuousRectangle(const QRectF& rectangle, double radius) {
    QPainterPath path;
    const double room = std::min(rectangle.width(), rectangle.height()) / 2;
    if (room <= 0 || radius <= 0) {
        path.addRect(rectangle);
        return path;
    }
    const Corner corner = cornerFor(std::min(radius, room), room);
    const double inset = corner.reach;
    std::array<QPointF, pieces + 1> curve;
    for (int i = 0; i <= pieces; ++i)
        curve[static_cast<std::size_t>(i)] = corner.point(static_cast<double>(i) / pieces);
    // Clockwise from the right end of the top side.
    struct Turn {
        QPointF centre;
        double right;
        double down;
        bool startsUpright; // or level
    };
    const std::array turns{
        Turn{rectangle.topRight() + QPointF(-inset, inset), 1, -1, false},
        Turn{rectangle.bottomRight() + QPointF(-inset, -inset), 1, 1, true},
        Turn{rectangle.bottomLeft() + QPointF(inset, -inset), -1, 1, false},
        Turn{rectangle.topLeft() + QPointF(inset, inset), -1, -1, true},
    };
    for (const Turn& turn : turns) {
        for (int i = 0; i <= pieces; ++i) {
            const QPointF point = curve[static_cast<std::size_t>(turn.startsUpright ? i : pieces - i)];
            const QPointF place = turn.centre + QPointF(turn.right * point.x(), turn.down * point.y());
            if (path.elementCount() == 0)
                path.moveTo(place);
            else
                path.lineTo(place);
        }
    }
    path.closeSubpath();
    return path;
}

double continuousReach(double radius) {
    return reachRatio * radius;
}

} // namespace zelmo
