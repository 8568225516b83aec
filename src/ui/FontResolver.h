#pragma once

#include "appearance/LauncherFontStyle.h"

#include <QFont>

#include <array>
#include <optional>

namespace zelmo {

class FontFaces;

// Turns a style of letters, a weight and a size into a font. Looks each of them up once: a text that is drawn again
// asks nobody. Owned by the wall's content; main thread.
class FontResolver {
public:
    // The faces outlive it.
    explicit FontResolver(const FontFaces& faces) : m_faces(faces) {}

    // The size is in points of the interface, which are its pixels at scale 1, and at least 1.
    QFont font(LauncherFontStyle style, double size, FontWeight weight);

private:
    QFont resolve(LauncherFontStyle style, FontWeight weight);
    QFont systemFont(FontDesign design, FontWeight weight);

    const FontFaces& m_faces;
    std::array<std::array<std::optional<QFont>, fontWeightCount>, fontStyleCount> m_fonts;
    std::array<std::optional<QString>, fontDesignCount> m_families;
};

} // namespace zelmo
