#include "ui/FontResolver.h"

#include "ui/FontFaces.h"

#include <algorithm>
#include <cmath>

namespace zelmo {

namespace {

constexpr int weightStep = 100;

QFont::Weight numberOf(FontWeight weight) {
    return static_cast<QFont::Weight>((static_cast<int>(weight) + 1) * weightStep);
}

} // namespace

QFont FontResolver::font(LauncherFontStyle style, double size, FontWeight weight) {
    auto& known = m_fonts[static_cast<std::size_t>(style)][static_cast<std::size_t>(weight)];
    if (!known)
        known = resolve(style, weight);
    QFont font = *known;
    font.setPixelSize(static_cast<int>(std::lround(std::max(size, 1.0))));
    return font;
}

QFont FontResolver::resolve(LauncherFontStyle style, FontWeight weight) {
    for (const QString& name : fontNames(style, weight)) {
        const auto face = m_faces.faceNamed(name);
        if (!face)
            continue;
        // Its own weight, so that nothing is made bolder on top.
        QFont font(face->family);
        font.setStyleName(face->styleName);
        font.setWeight(static_cast<QFont::Weight>(face->weight));
        font.setItalic(face->isSlanted);
        return font;
    }
    return systemFont(design(style), fixedWeight(style).value_or(weight));
}

QFont FontResolver::systemFont(FontDesign design, FontWeight weight) {
    auto& family = m_families[static_cast<std::size_t>(design)];
    if (!family)
        family = m_faces.systemFamily(design);
    QFont font(*family);
    font.setWeight(numberOf(weight));
    return font;
}

} // namespace zelmo
