#pragma once

#include "preferences/StyleColor.h"

#include <QColor>

namespace zelmo {

// A user's colour may lie outside 0 to 1; what is drawn is the nearest colour there is.
QColor toQColor(const StyleColor& color);
// The colour with its opacity reduced to this part of it.
QColor withOpacity(QColor color, double part);
// What an opaque colour looks like through the other one.
QColor through(const QColor& veil, const QColor& below);
QColor white(double opacity);
QColor black(double opacity);

} // namespace zelmo
