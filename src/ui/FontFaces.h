#pragma once

#include "appearance/FontDesign.h"

#include <QString>

#include <optional>

namespace zelmo {

// One face of a family, as exactly as it takes to ask for it again.
struct FontFace {
    QString family;
    QString styleName;
    int weight = 400; // 100 to 900, 400 being regular
    bool isSlanted = false;

    friend bool operator==(const FontFace&, const FontFace&) = default;
};

// The fonts that the system has. Each question is a look-up; whoever asks often keeps the answers. Main thread.
class FontFaces {
public:
    virtual ~FontFaces() = default;

    // The face of exactly this PostScript name.
    virtual std::optional<FontFace> faceNamed(const QString& postScriptName) const = 0;
    // The family of the system's own letters of this kind.
    virtual QString systemFamily(FontDesign design) const = 0;
};

} // namespace zelmo
