#include "platform/linux/fonts/FontconfigFaces.h"

#include <QSet>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <memory>

#include <fontconfig/fontconfig.h>

namespace zelmo {

namespace {

template <auto destroy>
struct Destroyer {
    template <typename T>
    void operator()(T* object) const {
        destroy(object);
    }
};
using Pattern = std::unique_ptr<FcPattern, Destroyer<FcPatternDestroy>>;
using Properties = std::unique_ptr<FcObjectSet, Destroyer<FcObjectSetDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Destroyer<FcFontSetDestroy>>;

// All fonts with this text as that property.
FontSet fontsWith(const char* property, const QString& text) {
    const Pattern pattern(FcPatternCreate());
    const Properties wanted(
        FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_WEIGHT, FC_SLANT, FC_POSTSCRIPT_NAME, FC_VARIABLE, nullptr));
    const QByteArray bytes = text.toUtf8();
    FcPatternAddString(pattern.get(), property, reinterpret_cast<const FcChar8*>(bytes.constData()));
    return FontSet(FcFontList(nullptr, pattern.get(), wanted.get()));
}

QString textOf(FcPattern* font, const char* property) {
    FcChar8* text = nullptr;
    return FcPatternGetString(font, property, 0, &text) == FcResultMatch
               ? QString::fromUtf8(reinterpret_cast<const char*>(text))
               : QString();
}

int weightOf(FcPattern* font) {
    double weight = FC_WEIGHT_REGULAR;
    FcPatternGetDouble(font, FC_WEIGHT, 0, &weight);
    return static_cast<int>(std::lround(FcWeightToOpenTypeDouble(weight)));
}

bool isSlanted(FcPattern* font) {
    int slant = FC_SLANT_ROMAN;
    FcPatternGetInteger(font, FC_SLANT, 0, &slant);
    return slant != FC_SLANT_ROMAN;
}

// What stands for a range of faces rather than for one.
bool isVariable(FcPattern* font) {
    FcBool variable = FcFalse;
    return FcPatternGetBool(font, FC_VARIABLE, 0, &variable) == FcResultMatch && variable;
}

// In how many weights an upright family comes.
qsizetype weightsOf(const QString& family) {
    const FontSet fonts = fontsWith(FC_FAMILY, family);
    QSet<int> weights;
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        if (!isSlanted(fonts->fonts[i]) && !isVariable(fonts->fonts[i]))
            weights.insert(weightOf(fonts->fonts[i]));
    }
    return weights.size();
}

// Whichever family fontconfig has for a generic name, such as "serif".
QString standIn(const char* genericName) {
    const Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(genericName));
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(nullptr, pattern.get(), &result));
    return match ? textOf(match.get(), FC_FAMILY) : QString();
}

QString firstInstalled(std::initializer_list<const char*> families, const char* genericName) {
    for (const char* family : families) {
        QString name = QString::fromLatin1(family);
        if (weightsOf(name) > 0)
            return name;
    }
    return standIn(genericName);
}

} // namespace

std::optional<FontFace> FontconfigFaces::faceNamed(const QString& postScriptName) const {
    const FontSet fonts = fontsWith(FC_POSTSCRIPT_NAME, postScriptName);
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FcPattern* font = fonts->fonts[i];
        // Fontconfig passes over capitals and blanks in a comparison.
        if (isVariable(font) || textOf(font, FC_POSTSCRIPT_NAME) != postScriptName)
            continue;
        return FontFace{.family = textOf(font, FC_FAMILY),
                        .styleName = textOf(font, FC_STYLE),
                        .weight = weightOf(font),
                        .isSlanted = isSlanted(font)};
    }
    return std::nullopt;
}

QString FontconfigFaces::systemFamily(FontDesign design) const {
    switch (design) {
    case FontDesign::standard:
        // The wall has texts of every weight: the desktop's own family counts if it has them.
        if (weightsOf(m_desktopFamily) >= fontWeightCount)
            return m_desktopFamily;
        return firstInstalled({"Inter", "Lato"},
                              m_desktopFamily.isEmpty() ? "sans-serif" : qPrintable(m_desktopFamily));
    case FontDesign::rounded:
        return firstInstalled({"Dosis", "Quicksand", "Comfortaa"}, "sans-serif");
    case FontDesign::serif:
        return firstInstalled({"Vollkorn", "Noto Serif", "DejaVu Serif"}, "serif");
    case FontDesign::monospaced:
        return firstInstalled({"JetBrains Mono", "Noto Sans Mono", "DejaVu Sans Mono"}, "monospace");
    }
    return m_desktopFamily;
}

} // namespace zelmo
