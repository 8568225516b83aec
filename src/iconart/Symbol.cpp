#include "iconart/Symbol.h"

#include "iconart/SymbolDrawings.h"
#include "iconart/SymbolPen.h"

#include <QPainter>

#include <algorithm>
#include <array>

namespace zelmo {

namespace {

struct SymbolRow {
    const char* name;
    const char* title;
    QPainterPath (*draw)(const SymbolPen& pen);
};

constexpr std::array symbolTable{
    SymbolRow{"bolt.horizontal.circle.fill", "Lightning bolt in a disc", boltDiscDrawing},
    SymbolRow{"book.closed.fill", "Closed book", bookDrawing},
    SymbolRow{"bubble.left.and.bubble.right.fill", "Two speech bubbles", bubblesDrawing},
    SymbolRow{"chart.bar", "Bar chart", barChartDrawing},
    SymbolRow{"chart.bar.fill", "Solid bar chart", solidBarChartDrawing},
    SymbolRow{"checkmark", "Checkmark", checkmarkDrawing},
    SymbolRow{"checkmark.circle", "Checkmark in a circle", checkmarkCircleDrawing},
    SymbolRow{"checkmark.circle.fill", "Checkmark in a disc", checkmarkDiscDrawing},
    SymbolRow{"chevron.left.forwardslash.chevron.right", "Slash between angle brackets", codeDrawing},
    SymbolRow{"circle", "Circle", circleDrawing},
    SymbolRow{"circle.hexagongrid.fill", "Seven discs in a hexagon", hexagonOfDiscsDrawing},
    SymbolRow{"gearshape.fill", "Gear", gearDrawing},
    SymbolRow{"keyboard.fill", "Keyboard", keyboardDrawing},
    SymbolRow{"magnifyingglass", "Magnifying glass", magnifyingGlassDrawing},
    SymbolRow{"paintbrush.pointed.fill", "Paintbrush", paintbrushDrawing},
    SymbolRow{"play.circle.fill", "Play button", playDiscDrawing},
    SymbolRow{"sparkle", "Sparkle", sparkleDrawing},
    SymbolRow{"sparkles", "Sparkles", sparklesDrawing},
    SymbolRow{"square.grid.2x2.fill", "Four squares", fourSquaresDrawing},
    SymbolRow{"square.grid.3x3.fill", "Nine squares", nineSquaresDrawing},
    SymbolRow{"trash.fill", "Trash can", trashDrawing},
    SymbolRow{"wand.and.stars", "Magic wand with stars", wandDrawing},
    SymbolRow{"xmark", "Cross", crossDrawing},
};

const SymbolRow& row(const QString& name) {
    const auto* const found = std::ranges::find_if(
        symbolTable, [&](const SymbolRow& candidate) { return name == QLatin1StringView(candidate.name); });
    if (found == symbolTable.end())
        qFatal("There is no symbol \"%s\".", qPrintable(name));
    return *found;
}

} // namespace

void paintSymbol(QPainter& painter, const QString& name, const QRectF& square, const QColor& color, FontWeight weight) {
    const QPainterPath drawing = SymbolPen::prepared(row(name).draw(SymbolPen(weight)));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width() / SymbolPen::gridSide, square.height() / SymbolPen::gridSide);
    painter.fillPath(drawing, color);
    painter.restore();
}

QStringList symbolNames() {
    QStringList names;
    for (const SymbolRow& row : symbolTable)
        names << QString::fromLatin1(row.name);
    return names;
}

QString symbolTitle(const QString& name) {
    return QString::fromLatin1(row(name).title);
}

} // namespace zelmo
