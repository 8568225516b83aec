#pragma once

#include <QByteArray>

namespace zelmo {

enum class SvgVerdict {
    accepted,
    damaged,          // no well-formed picture
    tooLarge,         // in bytes, elements or nesting
    tooHeavy,         // what is drawn, with everything that is drawn repeatedly, takes too long
    tooManyDashes,    // harmless without its dashes
    containsItself,   // an element repeats an element that it is in
    declaresEntities, // text that stands for other text
    reachesOutside,   // wants other files
    pictureTooLarge,  // a picture in it is of an unknown kind or too many pixels
};

// Reads a vector picture once, before it is drawn, and estimates what drawing it would cost: the
// renderer itself knows no limits of time and memory. Keeps nothing; may be used on several threads.
class SvgGuard {
public:
    static constexpr qsizetype byteLimit = 4 * 1024 * 1024;

    static SvgVerdict check(const QByteArray& bytes);
};

} // namespace zelmo
