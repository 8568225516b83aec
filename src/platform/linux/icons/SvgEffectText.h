#pragma once

#include <QByteArray>
#include <QStringView>

#include <optional>

namespace zelmo {

// What SvgEffects reads out of single names, values and the whole text of a vector picture. SvgGuard counts the
// points too.

// Most pictures can't have effects, and need no closer look.
bool mayHaveSvgEffects(const QByteArray& bytes);

// Whether every reader of the bytes sees the same letters.
bool isPlainSvgText(const QByteArray& bytes);

// In nanoseconds for each pixel. None for those that take a time that their numbers decide, or that reach for
// other pictures.
std::optional<qint64> svgFilterPartCost(QStringView element);

// A length in the picture's own units, without its sign. None when it has another unit or is no number.
std::optional<double> svgMeasure(QStringView text);

// By how much a transform makes things larger, at least 1; infinite where there is no telling.
double svgEnlargement(QStringView transform);

// What the numbers in an element's attributes tell of its outline.
struct SvgOutline {
    qint64 points = 0; // numbers, and what closes a part of it without one
    double length = 0; // at most; infinite where there is no telling

    static SvgOutline ofDescription(QStringView text); // of a path, or the corners of a polygon
    static SvgOutline ofMeasure(QStringView text);     // one side, radius or the like of another shape
};

} // namespace zelmo
