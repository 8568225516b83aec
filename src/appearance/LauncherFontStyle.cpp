#include "appearance/LauncherFontStyle.h"

#include "appearance/StyleTable.h"

namespace zelmo {

namespace {

// Which of a style's own fonts a weight takes.
enum class FontRole { regular, medium, semibold, bold, heavy };
constexpr std::size_t roleCount = 5;

using RoleNames = std::array<std::string_view, roleCount>;

struct FontRow {
    LauncherFontStyle style;
    std::string_view rawValue;
    std::string_view title;
    FontDesign design = FontDesign::standard;
    double tracking = 0;
    std::optional<FontWeight> fixedWeight = std::nullopt;
    std::string_view family = {}; // whose fonts are named after their roles
    RoleNames names = {};
};

// What stands behind the family for each role.
constexpr RoleNames familySuffixes{"-Regular", "-Medium", "-SemiBold", "-Bold", "-Black"};

using enum LauncherFontStyle;
using enum FontDesign;

constexpr StyleTable fontTable(std::array{
    FontRow{.style = appleDefault, .rawValue = "appleDefault", .title = "Apple Default"},
    FontRow{.style = appleRounded, .rawValue = "appleRounded", .title = "Apple Rounded", .design = rounded},
    FontRow{.style = newYorkSerif, .rawValue = "newYorkSerif", .title = "New York Serif", .design = serif},
    FontRow{.style = sfMono, .rawValue = "sfMono", .title = "SF Mono", .design = monospaced, .tracking = 0.4},
    FontRow{.style = avenirNext,
            .rawValue = "avenirNext",
            .title = "Avenir Next",
            .names = {"AvenirNext-Regular", "AvenirNext-Medium", "AvenirNext-DemiBold", "AvenirNext-Bold",
                      "AvenirNext-Heavy"}},
    FontRow{.style = helveticaNeue,
            .rawValue = "helveticaNeue",
            .title = "Helvetica Neue",
            .names = {"HelveticaNeue", "HelveticaNeue-Medium", "HelveticaNeue-Medium", "HelveticaNeue-Bold",
                      "HelveticaNeue-CondensedBlack"}},
    FontRow{.style = optima,
            .rawValue = "optima",
            .title = "Optima",
            .names = {"Optima-Regular", "Optima-Regular", "Optima-Bold", "Optima-Bold", "Optima-ExtraBlack"}},
    FontRow{.style = georgia,
            .rawValue = "georgia",
            .title = "Georgia",
            .design = serif,
            .names = {"Georgia", "Georgia", "Georgia-Bold", "Georgia-Bold", "Georgia-Bold"}},
    FontRow{.style = palatino,
            .rawValue = "palatino",
            .title = "Palatino",
            .design = serif,
            .names = {"Palatino-Roman", "Palatino-Roman", "Palatino-Bold", "Palatino-Bold", "Palatino-Bold"}},
    FontRow{.style = futura,
            .rawValue = "futura",
            .title = "Futura",
            .tracking = 0.25,
            .names = {"Futura-Medium", "Futura-Medium", "Futura-Medium", "Futura-CondensedExtraBold",
                      "Futura-CondensedExtraBold"}},
    FontRow{.style = gillSans,
            .rawValue = "gillSans",
            .title = "Gill Sans",
            .tracking = 0.25,
            .names = {"GillSans", "GillSans", "GillSans-SemiBold", "GillSans-Bold", "GillSans-Bold"}},
    FontRow{.style = slate, .rawValue = "slate", .title = "Slate"},
    FontRow{.style = cyber,
            .rawValue = "cyber",
            .title = "Cyber",
            .design = monospaced,
            .tracking = 1.4,
            .fixedWeight = FontWeight::bold},
    FontRow{.style = modernist, .rawValue = "modernist", .title = "Modernist", .design = rounded},
    FontRow{.style = classicist, .rawValue = "classicist", .title = "Classicist", .design = serif},
    FontRow{.style = athletic,
            .rawValue = "athletic",
            .title = "Athletic",
            .design = serif,
            .fixedWeight = FontWeight::black},
    FontRow{.style = architect,
            .rawValue = "architect",
            .title = "Architect",
            .tracking = 0.6,
            .fixedWeight = FontWeight::ultraLight},
    FontRow{.style = writer, .rawValue = "writer", .title = "Writer", .design = rounded},
    FontRow{
        .style = techno, .rawValue = "techno", .title = "Techno", .tracking = 1.4, .fixedWeight = FontWeight::heavy},
    FontRow{.style = display,
            .rawValue = "display",
            .title = "Display",
            .design = rounded,
            .tracking = 1.4,
            .fixedWeight = FontWeight::black},
    FontRow{.style = instrumentSans,
            .rawValue = "instrumentSans",
            .title = "Instrument Sans",
            .tracking = 0.4,
            .family = "InstrumentSans"},
    FontRow{
        .style = vercetti,
        .rawValue = "vercetti",
        .title = "Vercetti",
        .tracking = 0.6,
        .names = {"Vercetti-Regular", "Vercetti-Regular", "Vercetti-Regular", "Vercetti-Regular", "Vercetti-Regular"}},
    FontRow{.style = murecho, .rawValue = "murecho", .title = "Murecho", .family = "Murecho"},
    FontRow{.style = petrona, .rawValue = "petrona", .title = "Petrona", .design = serif, .family = "Petrona"},
    FontRow{.style = sansitaSwashed,
            .rawValue = "sansitaSwashed",
            .title = "Sansita Swashed",
            .design = rounded,
            .tracking = 0.2,
            .family = "SansitaSwashed"},
    FontRow{.style = raleway, .rawValue = "raleway", .title = "Raleway", .family = "Raleway"},
    FontRow{.style = lilGrotesk,
            .rawValue = "lilGrotesk",
            .title = "Lil Grotesk",
            .tracking = 0.4,
            .names = {"LilGrotesk-Regular", "LilGrotesk-Medium", "LilGrotesk-SemiBold", "LilGrotesk-Bold",
                      "LilGrotesk-Black"}},
    FontRow{.style = besley, .rawValue = "besley", .title = "Besley", .design = serif, .family = "Besley"},
    FontRow{.style = coconat,
            .rawValue = "coconat",
            .title = "Coconat",
            .design = rounded,
            .tracking = 0.2,
            .names = {"Coconat-Regular", "Coconat-Regular", "Coconat-Bold", "Coconat-BoldExt", "Coconat-BoldExt"}},
    FontRow{.style = syne, .rawValue = "syne", .title = "Syne", .tracking = 1.4, .family = "Syne"},
});

FontRole fontRole(FontWeight weight) {
    switch (weight) {
    case FontWeight::black:
    case FontWeight::heavy:
        return FontRole::heavy;
    case FontWeight::bold:
        return FontRole::bold;
    case FontWeight::semibold:
        return FontRole::semibold;
    case FontWeight::medium:
        return FontRole::medium;
    default:
        return FontRole::regular;
    }
}

} // namespace

QString rawValue(LauncherFontStyle style) {
    return latin1(fontTable[style].rawValue);
}

QString title(LauncherFontStyle style) {
    return latin1(fontTable[style].title);
}

std::optional<LauncherFontStyle> fontStyleFromRawValue(QStringView rawValue) {
    return fontTable.find(rawValue);
}

FontDesign design(LauncherFontStyle style) {
    return fontTable[style].design;
}

std::optional<FontWeight> fixedWeight(LauncherFontStyle style) {
    return fontTable[style].fixedWeight;
}

double tracking(LauncherFontStyle style) {
    return fontTable[style].tracking;
}

std::vector<QString> fontNames(LauncherFontStyle style, FontWeight weight) {
    const FontRow& row = fontTable[style];
    std::vector<QString> names;
    for (std::size_t role = 0; role < roleCount; ++role) {
        if (!row.family.empty())
            names.emplace_back(latin1(row.family) + latin1(familySuffixes[role]));
        else if (!row.names[role].empty())
            names.emplace_back(latin1(row.names[role]));
    }
    if (!names.empty())
        names.insert(names.begin(), names[static_cast<std::size_t>(fontRole(weight))]);
    return names;
}

} // namespace zelmo
