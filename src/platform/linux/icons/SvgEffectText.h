#pragma once

#include <QByteArray>
#include <QStringView>

#include <optional>

namespace zelmo {

// What SvgEffects reads out of single names, values and the whole text of a vector picture. SvgGuard counts numbers
// too.

// Most pictures can't have effects, and need no closer look.
bool mayHaveSvgEffects(const QByteArray& bytes);

// Whether every reader of the bytes sees the same letters.
bool isPlainSvgText(const QByteArray& bytes);

// In nanoseconds for each pixel. None for those that take a time that their numbers decide, or that reach for
// other pictures.
std::optional<qint64> svgFilterPartCost(QStringView element);

struct SvgNumbers {
    qint64 count = 0;
    double largest = 0;

    static SvgNumbers in(QStringView text);
};

} // namespace zelmo
