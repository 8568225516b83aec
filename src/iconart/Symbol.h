#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace zelmo {

// Draws one of the interface's symbols into a square, in one colour: "checkmark", "checkmark.circle", "circle" or
// "trash.fill". An unknown name is an error of the program and ends it.
void paintSymbol(QPainter& painter, const QString& name, const QRectF& square, const QColor& color);

} // namespace zelmo
