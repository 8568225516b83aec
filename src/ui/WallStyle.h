#pragma once

#include "preferences/StyleColor.h"
#include "ui/FontResolver.h"

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

class Preferences;

// A user's colour may lie outside 0 to 1; what is drawn is the nearest colour there is.
QColor toQColor(const StyleColor& color);

// The user's appearance settings as the views bind to them; every one follows its preference at
// once. Owned by the wall's content; main thread.
class WallStyle : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its preferences")

    Q_PROPERTY(QColor textColor READ textColor NOTIFY changed)
    Q_PROPERTY(QFont titleFont READ titleFont NOTIFY changed)
    Q_PROPERTY(QFont subtitleFont READ subtitleFont NOTIFY changed)
    Q_PROPERTY(QFont searchFont READ searchFont NOTIFY changed)
    Q_PROPERTY(QFont appNameFont READ appNameFont NOTIFY changed)
    Q_PROPERTY(QFont appCategoryFont READ appCategoryFont NOTIFY changed)
    Q_PROPERTY(QList<QColor> backgroundColors READ backgroundColors NOTIFY changed)

public:
    // Both outlive it.
    WallStyle(const Preferences& preferences, const FontFaces& faces);

    QColor textColor() const;
    QFont titleFont() const;
    QFont subtitleFont() const;
    QFont searchFont() const;
    QFont appNameFont() const;
    QFont appCategoryFont() const;
    // Stops of the diagonal gradient behind the wall.
    QList<QColor> backgroundColors() const;

Q_SIGNALS:
    void changed();

private:
    LauncherFontStyle fontStyle() const;
    QFont font(double size, FontWeight weight) const;
    // In capitals, with the style's letter spacing but no less than this one.
    QFont spacedFont(double size, FontWeight weight, double leastSpacing) const;

    const Preferences& m_preferences;
    mutable FontResolver m_resolver;
};

} // namespace zelmo
