#include "iconart/ZelmoIconCanvas.h"

#include "iconart/ContinuousRectangle.h"
#include "iconart/Layer.h"
#include "iconart/Symbol.h"
#include "iconart/ZelmoGlyph.h"

#include <QLinearGradient>
#include <QPainter>

namespace zelmo {

namespace {

QColor srgb(double red, double green, double blue, double alpha = 1) {
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue),
                            static_cast<float>(alpha));
}

QColor white(double alpha) {
    return srgb(1, 1, 1, alpha);
}

template <std::size_t count>
QLinearGradient diagonal(const QRectF& rectangle, const std::array<QColor, count>& stops) {
    QLinearGradient gradient(rectangle.topLeft(), rectangle.bottomRight());
    for (std::size_t i = 0; i < count; ++i)
        gradient.setColorAt(static_cast<double>(i) / (count - 1), stops[i]);
    return gradient;
}

// A square with this middle, of the symbol at a font's size.
QRectF symbolSquare(QPointF middle, double fontSize) {
    const QSizeF size = QSizeF(fontSize, fontSize) * symbolSideRatio;
    return {middle - QPointF(size.width(), size.height()) / 2, size};
}

// Around the origin, of a canvas with this side.
void paintMosaic(QPainter& painter, double side) {
    const QRectF glyph(-0.31 * side, -0.31 * side, 0.62 * side, 0.62 * side);
    paintWithShadow(painter, glyph, {.opacity = 0.18, .radius = 0.025 * side, .offset = 0.014 * side},
                    [&](QPainter& layer) { ZelmoBareGlyph(GlyphState::active).paint(layer, glyph); });
}

void paintAurora(QPainter& painter, double side) {
    constexpr std::array offsets{QPointF(-0.14, -0.14), QPointF(0.12, -0.05), QPointF(-0.08, 0.15),
                                 QPointF(0.18, 0.16)};
    const QPointF half(0.12 * side, 0.12 * side);
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        const QRectF tile(offsets[i] * side - half, offsets[i] * side + half);
        painter.fillPath(continuousRectangle(tile, 0.08 * side), ZelmoIconCanvas::auroraTile(static_cast<int>(i)));
    }
    paintSymbol(painter, QStringLiteral("sparkles"), symbolSquare(QPointF(0.12, -0.12) * side, 0.19 * side),
                white(0.92), FontWeight::heavy);
}

void paintStack(QPainter& painter, double side) {
    const QRectF card(-0.23 * side, -0.15 * side, 0.46 * side, 0.30 * side);
    for (int i = 0; i < 3; ++i) {
        const QPointF offset(0, side * (i - 1) * 0.08);
        // Turned by 8 degrees, a card reaches that much further.
        const QRectF room = card.adjusted(-0.03 * side, -0.04 * side, 0.03 * side, 0.04 * side).translated(offset);
        paintWithShadow(
            painter, room, {.opacity = 0.16, .radius = 0.022 * side, .offset = 0.012 * side}, [&](QPainter& layer) {
                layer.translate(offset);
                layer.rotate((i - 1) * 8);
                layer.fillPath(continuousRectangle(card, 0.08 * side), diagonal(card, ZelmoIconCanvas::stackTile(i)));
            });
    }
}

void paintSpark(QPainter& painter, double side) {
    QPainterPath circle;
    circle.addEllipse(QPointF(), 0.26 * side, 0.26 * side);
    painter.fillPath(circle, white(0.2));
    paintSymbol(painter, QStringLiteral("square.grid.3x3.fill"), symbolSquare({}, 0.3 * side), white(0.9),
                FontWeight::black);
    paintSymbol(painter, QStringLiteral("sparkle"), symbolSquare(QPointF(0.22, -0.22) * side, 0.16 * side),
                srgb(0.99, 0.88, 0.48), FontWeight::black);
}

struct StyleRow {
    std::array<QColor, 3> background;
    void (*paintMark)(QPainter& painter, double side);
};

const StyleRow& row(AppIconStyle style) {
    static const std::array<StyleRow, appIconStyleCount> rows{{
        {{srgb(0.95, 0.98, 1.00), srgb(0.58, 0.74, 0.95), srgb(0.22, 0.36, 0.62)}, paintMosaic},
        {{srgb(0.97, 0.91, 0.68), srgb(0.60, 0.86, 0.78), srgb(0.39, 0.49, 0.90)}, paintAurora},
        {{srgb(0.16, 0.21, 0.33), srgb(0.24, 0.42, 0.58), srgb(0.48, 0.74, 0.72)}, paintStack},
        {{srgb(0.98, 0.72, 0.45), srgb(0.94, 0.42, 0.55), srgb(0.38, 0.32, 0.78)}, paintSpark},
    }};
    return rows[static_cast<std::size_t>(style)];
}

} // namespace

void ZelmoIconCanvas::paint(QPainter& painter, const QRectF& rectangle) const {
    const double side = std::min(rectangle.width(), rectangle.height());
    const QRectF plate(-side / 2, -side / 2, side, side);
    const QPainterPath outline = continuousRectangle(plate, 0.23 * side);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rectangle.center());
    paintWithShadow(painter, plate, {.opacity = 0.2, .radius = 0.035 * side, .offset = 0.018 * side},
                    [&](QPainter& layer) { layer.fillPath(outline, diagonal(plate, row(m_style).background)); });
    QLinearGradient edge(plate.topLeft(), plate.bottomLeft());
    edge.setColorAt(0, white(0.72));
    edge.setColorAt(1, white(0.1));
    painter.strokePath(outline, QPen(edge, 0.012 * side));
    row(m_style).paintMark(painter, side);
    painter.restore();
}

std::array<QColor, 3> ZelmoIconCanvas::background(AppIconStyle style) {
    return row(style).background;
}

QColor ZelmoIconCanvas::auroraTile(int index) {
    static const std::array tiles{srgb(0.37, 0.78, 1.00), srgb(0.96, 0.58, 0.44), srgb(0.62, 0.90, 0.75), white(0.78)};
    if (index < 0 || static_cast<std::size_t>(index) >= tiles.size())
        qFatal("There is no aurora tile %d.", index);
    return tiles[static_cast<std::size_t>(index)];
}

std::array<QColor, 2> ZelmoIconCanvas::stackTile(int index) {
    static const std::array<std::array<QColor, 2>, 3> tiles{{{srgb(0.92, 0.54, 0.45), srgb(0.96, 0.76, 0.44)},
                                                             {srgb(0.46, 0.70, 0.96), srgb(0.40, 0.88, 0.74)},
                                                             {srgb(0.74, 0.64, 0.98), srgb(0.44, 0.52, 0.94)}}};
    if (index < 0 || static_cast<std::size_t>(index) >= tiles.size())
        qFatal("There is no stack tile %d.", index);
    return tiles[static_cast<std::size_t>(index)];
}

} // namespace zelmo
