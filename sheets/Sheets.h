#pragma once

#include <QImage>

namespace zelmo {

class FontFaces;

// Pictures of everything of a kind that the program can draw, to look at side by side. Two pixels to the point.
QImage backgroundSheet();
// Each style in its own letters.
QImage fontSheet(const FontFaces& faces);
// Each icon at 16, 32, 64, 128 and 256 points.
QImage iconSheet();
// The menu-bar marks in both states on a light and a dark panel, at their size and enlarged.
QImage glyphSheet();
// Each symbol in three weights.
QImage symbolSheet();

} // namespace zelmo
