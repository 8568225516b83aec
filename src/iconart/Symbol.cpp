#include "iconart/Symbol.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

namespace zelmo {

namespace {

// Symbols are drawn on a grid of so many units, with strokes of this width.
constexpr double gridSide = 24;
constexpr double strokeWidth = 2.6;

struct Drawing {
    QPainterPath stroked;
    QPainterPath filled;
};

QPainterPath checkmark(double x, double y, double size) {
    QPainterPath path(QPointF(x, y + 0.52 * size));
    path.lineTo(x + 0.36 * size, y + 0.88 * size);
    path.lineTo(x + size, y + 0.12 * size);
    return path;
}

QPainterPath circle(double radius) {
    QPainterPath path;
    path.addEllipse(QPointF(gridSide / 2, gridSide / 2), radius, radius);
    return path;
}

Drawing checkmarkDrawing() {
    return {.stroked = checkmark(4.5, 4.5, 15), .filled = {}};
}

Drawing checkmarkCircleDrawing() {
    QPainterPath path = circle(10);
    path.addPath(checkmark(7.6, 7.8, 8.8));
    return {.stroked = path, .filled = {}};
}

Drawing circleDrawing() {
    return {.stroked = circle(8.6), .filled = {}};
}

Drawing trashDrawing() {
    QPainterPath lid(QPointF(4.2, 6.4));
    lid.lineTo(19.8, 6.4);
    lid.moveTo(9, 6.2);
    lid.lineTo(9, 3.6);
    lid.lineTo(15, 3.6);
    lid.lineTo(15, 6.2);
    QPainterPath body(QPointF(5.8, 9));
    body.lineTo(6.9, 20.2);
    body.quadTo(7.1, 22, 8.9, 22);
    body.lineTo(15.1, 22);
    body.quadTo(16.9, 22, 17.1, 20.2);
    body.lineTo(18.2, 9);
    body.closeSubpath();
    QPainterPath slots;
    slots.addRoundedRect(QRectF(9.1, 11.6, 1.6, 7.4), 0.8, 0.8);
    slots.addRoundedRect(QRectF(13.3, 11.6, 1.6, 7.4), 0.8, 0.8);
    return {.stroked = lid, .filled = body - slots};
}

struct SymbolRow {
    const char* name;
    Drawing (*draw)();
};

constexpr std::array symbolTable{
    SymbolRow{"checkmark", checkmarkDrawing},
    SymbolRow{"checkmark.circle", checkmarkCircleDrawing},
    SymbolRow{"circle", circleDrawing},
    SymbolRow{"trash.fill", trashDrawing},
};

} // namespace

void paintSymbol(QPainter& painter, const QString& name, const QRectF& square, const QColor& color) {
    const auto row = std::find_if(symbolTable.begin(), symbolTable.end(), [&](const SymbolRow& candidate) {
        return name == QLatin1StringView(candidate.name);
    });
    if (row == symbolTable.end())
        qFatal("There is no symbol \"%s\".", qPrintable(name));
    const Drawing drawing = row->draw();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width() / gridSide, square.height() / gridSide);
    painter.strokePath(drawing.stroked, QPen(color, strokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(drawing.filled, color);
    painter.restore();
}

} // namespace zelmo
