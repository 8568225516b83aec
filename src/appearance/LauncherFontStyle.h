#pragma once

#include "appearance/FontDesign.h"

#include <QString>

#include <optional>
#include <vector>

namespace zelmo {

// The letters of the wall, in the order of the settings' picker.
enum class LauncherFontStyle {
    appleDefault,
    appleRounded,
    newYorkSerif,
    sfMono,
    avenirNext,
    helveticaNeue,
    optima,
    georgia,
    palatino,
    futura,
    gillSans,
    slate,
    cyber,
    modernist,
    classicist,
    athletic,
    architect,
    writer,
    techno,
    display,
    instrumentSans,
    vercetti,
    murecho,
    petrona,
    sansitaSwashed,
    raleway,
    lilGrotesk,
    besley,
    coconat,
    syne,
};

inline constexpr int fontStyleCount = static_cast<int>(LauncherFontStyle::syne) + 1;

// The case name, under which a style is stored.
QString rawValue(LauncherFontStyle style);
QString title(LauncherFontStyle style);
// Nothing for a text that is not exactly one of the case names.
std::optional<LauncherFontStyle> fontStyleFromRawValue(QStringView rawValue);

// Of the system's font, also where none of the style's own fonts is there.
FontDesign design(LauncherFontStyle style);
// The weight that each text has in this style, whichever is asked for; nothing where the asked one counts.
std::optional<FontWeight> fixedWeight(LauncherFontStyle style);
// The base of the letter spacing, in points.
double tracking(LauncherFontStyle style);

// The PostScript names to look for, the first one that exists first: the one of the weight, then all of the style's,
// some of them twice. None for a style of the system's font.
std::vector<QString> fontNames(LauncherFontStyle style, FontWeight weight);

} // namespace zelmo
