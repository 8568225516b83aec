#pragma once

#include "ui/FontFaces.h"

namespace zelmo {

// The fonts that fontconfig knows. The system's own letters of each kind are those of the first family in a list that
// is there; all of the lists' first families belong to what the program is installed with. Main thread.
class FontconfigFaces : public FontFaces {
public:
    // The family that the desktop has chosen for its own texts; empty where it has not.
    explicit FontconfigFaces(QString desktopFamily) : m_desktopFamily(std::move(desktopFamily)) {}

    std::optional<FontFace> faceNamed(const QString& postScriptName) const override;
    QString systemFamily(FontDesign design) const override;

private:
    QString m_desktopFamily;
};

} // namespace zelmo
