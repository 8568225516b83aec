#include "iconart/ZelmoGlyph.h"

#include "iconart/ContinuousRectangle.h"
#include "iconart/Layer.h"

#include <QPainter>

#include <array>

namespace zelmo {

namespace {

constexpr int rows = 3;

// Fractions of the side. The cells and the gaps between them span 0.88 of it.
constexpr double cellFraction = 0.24;
constexpr double gapFraction = 0.08;
constexpr double span = rows * cellFraction + (rows - 1) * gapFraction;

// Fractions of a cell.
constexpr double cornerFraction = 0.22;
constexpr double shadowRadiusFraction = 0.22;
constexpr double shadowOffsetFraction = 0.08;

constexpr float edgeOpacity = 0.08F;
constexpr double edgeWidth = 0.6; // points

struct WhiteCells {
    float middle;
    float last;
};

QColor cellColor(int row, int column, WhiteCells white) {
    static constexpr std::array<std::array<float, 3>, 8> colored{{{0.96F, 0.94F, 0.90F},
                                                                  {0.43F, 0.61F, 1.00F},
                                                                  {0.59F, 0.87F, 0.79F},
                                                                  {0.96F, 0.58F, 0.46F},
                                                                  {0.95F, 0.75F, 0.37F},
                                                                  {1, 1, 1},
                                                                  {0.72F, 0.62F, 1.00F},
                                                                  {0.35F, 0.82F, 0.77F}}};
    const bool isOutside = row < 0 || row >= rows || column < 0 || column >= rows;
    const int cell = isOutside ? rows * rows - 1 : row * rows + column;
    if (cell == rows * rows - 1)
        return QColor::fromRgbF(1, 1, 1, white.last);
    const auto& [red, green, blue] = colored[static_cast<std::size_t>(cell)];
    return QColor::fromRgbF(red, green, blue, cell == 5 ? white.middle : 1);
}

// Calls with the row, the column and the place of each cell.
template <typename Paint>
void forEachCell(const QRectF& rectangle, Paint paint) {
    const double side = std::min(rectangle.width(), rectangle.height());
    const QPointF first = rectangle.center() - QPointF(side, side) * span / 2;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < rows; ++column) {
            const QPointF offset = QPointF(column, row) * side * (cellFraction + gapFraction);
            paint(row, column, QRectF(first + offset, QSizeF(side, side) * cellFraction));
        }
    }
}

} // namespace

QColor ZelmoGlyph::tileColor(int row, int column) const {
    return cellColor(row, column, m_state == GlyphState::active ? WhiteCells{0.82F, 0.42F} : WhiteCells{0.58F, 0.26F});
}

void ZelmoGlyph::paint(QPainter& painter, const QRectF& rectangle) const {
    forEachCell(rectangle, [&](int row, int column, const QRectF& cell) {
        const QPainterPath path = continuousRectangle(cell, cell.width() * cornerFraction);
        const ShadowStyle shadow{.opacity = m_state == GlyphState::active ? 0.42 : 0.24,
                                 .radius = cell.width() * shadowRadiusFraction,
                                 .offset = cell.width() * shadowOffsetFraction};
        const double edge = edgeWidth / 2;
        paintWithShadow(painter, cell.adjusted(-edge, -edge, edge, edge), shadow, [&](QPainter& layer) {
            layer.fillPath(path, tileColor(row, column));
            layer.strokePath(path, QPen(QColor::fromRgbF(1, 1, 1, edgeOpacity), edgeWidth));
        });
    });
}

QColor ZelmoBareGlyph::tileColor(int row, int column) const {
    return cellColor(row, column, m_state == GlyphState::active ? WhiteCells{0.9F, 0.58F} : WhiteCells{0.72F, 0.42F});
}

void ZelmoBareGlyph::paint(QPainter& painter, const QRectF& rectangle) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    forEachCell(rectangle, [&](int row, int column, const QRectF& cell) {
        painter.fillPath(continuousRectangle(cell, cell.width() * cornerFraction), tileColor(row, column));
    });
    painter.restore();
}

} // namespace zelmo
