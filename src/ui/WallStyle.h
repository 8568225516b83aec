#pragma once

#include "preferences/StyleColor.h"

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
    Q_PROPERTY(qreal titleFontSize READ titleFontSize NOTIFY changed)
    Q_PROPERTY(qreal subtitleFontSize READ subtitleFontSize NOTIFY changed)
    Q_PROPERTY(qreal searchFontSize READ searchFontSize NOTIFY changed)
    Q_PROPERTY(qreal appNameFontSize READ appNameFontSize NOTIFY changed)
    Q_PROPERTY(qreal appCategoryFontSize READ appCategoryFontSize NOTIFY changed)
    Q_PROPERTY(QList<QColor> backgroundColors READ backgroundColors NOTIFY changed)

public:
    explicit WallStyle(const Preferences& preferences);

    QColor textColor() const;
    qreal titleFontSize() const;
    qreal subtitleFontSize() const;
    qreal searchFontSize() const;
    qreal appNameFontSize() const;
    qreal appCategoryFontSize() const;
    // Stops of the diagonal gradient behind the wall.
    QList<QColor> backgroundColors() const;

Q_SIGNALS:
    void changed();

private:
    const Preferences& m_preferences;
};

} // namespace zelmo
