#pragma once

#include "ui/FontFaces.h"

namespace zelmo::test {

// A system with one family.
class FixedFontFaces : public FontFaces {
public:
    std::optional<FontFace> faceNamed(const QString&) const override { return std::nullopt; }
    QString systemFamily(FontDesign) const override { return QStringLiteral("DejaVu Sans"); }
};

} // namespace zelmo::test
