#pragma once

#include "appearance/FontDesign.h"

#include <QColor>
#include <QRectF>
#include <QString>
#include <QStringList>

class QPainter;

namespace zelmo {

// Symbols stand among letters: one of a font's point size is drawn in a square that is so many times as large. Its ink
// is a little larger than the point size, and clear of the square's edges.
inline constexpr double symbolSideRatio = 1.25;

// Draws one of the interface's symbols into a square, in one colour that may be translucent. An unknown name is an
// error of the program and ends it. Any thread.
void paintSymbol(QPainter& painter, const QString& name, const QRectF& square, const QColor& color,
                 FontWeight weight = FontWeight::regular);

// Every name there is, in alphabetical order.
QStringList symbolNames();
// What the symbol shows, for those who can't see it. An unknown name ends the program here too.
QString symbolTitle(const QString& name);

} // namespace zelmo
