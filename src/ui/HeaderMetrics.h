#pragma once

#include "ui/StyleColors.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

// Lengths, opacities and colours of the panel at the top of the wall: title, search row and category bar. Lengths are
// points, also of symbols, which are as large as text of that size; opacities go from 0 to 1.
class HeaderMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(qreal panelRadius READ panelRadius CONSTANT)
    Q_PROPERTY(qreal panelHorizontalPadding READ panelHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal panelVerticalPadding READ panelVerticalPadding CONSTANT)
    Q_PROPERTY(qreal panelSpacing READ panelSpacing CONSTANT)
    Q_PROPERTY(QList<QColor> panelColors READ panelColors CONSTANT)
    Q_PROPERTY(QColor panelOutline READ panelOutline CONSTANT)
    Q_PROPERTY(qreal panelShadowOpacity READ panelShadowOpacity CONSTANT)
    Q_PROPERTY(qreal panelShadowRadius READ panelShadowRadius CONSTANT)
    Q_PROPERTY(qreal panelShadowOffset READ panelShadowOffset CONSTANT)
    Q_PROPERTY(qreal titleRowSpacing READ titleRowSpacing CONSTANT)
    Q_PROPERTY(qreal titleRowsSpacing READ titleRowsSpacing CONSTANT)
    Q_PROPERTY(qreal glyphSide READ glyphSide CONSTANT)
    Q_PROPERTY(qreal titleSpacing READ titleSpacing CONSTANT)
    Q_PROPERTY(qreal titleOpacity READ titleOpacity CONSTANT)
    Q_PROPERTY(qreal subtitleOpacity READ subtitleOpacity CONSTANT)
    Q_PROPERTY(qreal subtitleTracking READ subtitleTracking CONSTANT)
    Q_PROPERTY(qreal closeSide READ closeSide CONSTANT)
    Q_PROPERTY(QColor closeFill READ closeFill CONSTANT)
    Q_PROPERTY(qreal closeSymbolSize READ closeSymbolSize CONSTANT)
    Q_PROPERTY(qreal closeSymbolOpacity READ closeSymbolOpacity CONSTANT)
    Q_PROPERTY(qreal searchHorizontalPadding READ searchHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal searchVerticalPadding READ searchVerticalPadding CONSTANT)
    Q_PROPERTY(qreal searchSpacing READ searchSpacing CONSTANT)
    Q_PROPERTY(qreal searchRadius READ searchRadius CONSTANT)
    Q_PROPERTY(QColor searchFill READ searchFill CONSTANT)
    Q_PROPERTY(QColor searchOutline READ searchOutline CONSTANT)
    Q_PROPERTY(qreal searchTextOpacity READ searchTextOpacity CONSTANT)
    Q_PROPERTY(qreal placeholderOpacity READ placeholderOpacity CONSTANT)
    Q_PROPERTY(QList<QColor> searchWash READ searchWash CONSTANT)
    Q_PROPERTY(qreal searchBadgeSide READ searchBadgeSide CONSTANT)
    Q_PROPERTY(QList<QColor> searchBadgeColors READ searchBadgeColors CONSTANT)
    Q_PROPERTY(qreal searchSymbolSize READ searchSymbolSize CONSTANT)
    Q_PROPERTY(qreal editSide READ editSide CONSTANT)
    Q_PROPERTY(qreal editSymbolSize READ editSymbolSize CONSTANT)
    Q_PROPERTY(qreal disabledOpacity READ disabledOpacity CONSTANT)
    Q_PROPERTY(QList<QColor> uninstallColors READ uninstallColors CONSTANT)
    Q_PROPERTY(QList<QColor> selectColors READ selectColors CONSTANT)
    Q_PROPERTY(QList<QColor> settingsColors READ settingsColors CONSTANT)
    Q_PROPERTY(qreal chipsSpacing READ chipsSpacing CONSTANT)
    Q_PROPERTY(qreal chipSpacing READ chipSpacing CONSTANT)
    Q_PROPERTY(qreal chipHorizontalPadding READ chipHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal chipVerticalPadding READ chipVerticalPadding CONSTANT)
    Q_PROPERTY(qreal chipSymbolSize READ chipSymbolSize CONSTANT)
    Q_PROPERTY(qreal chipOpacity READ chipOpacity CONSTANT)
    Q_PROPERTY(QColor chipFill READ chipFill CONSTANT)
    Q_PROPERTY(QColor chipOutline READ chipOutline CONSTANT)
    Q_PROPERTY(qreal mostUsedTracking READ mostUsedTracking CONSTANT)
    Q_PROPERTY(QList<QColor> mostUsedColors READ mostUsedColors CONSTANT)
    Q_PROPERTY(QColor mostUsedOutline READ mostUsedOutline CONSTANT)
    Q_PROPERTY(qreal chipAccentOpacity READ chipAccentOpacity CONSTANT)
    Q_PROPERTY(qreal wheelStep READ wheelStep CONSTANT)

public:
    using QObject::QObject;

    static constexpr qreal panelRadius() { return 32; }
    static constexpr qreal panelHorizontalPadding() { return 24; }
    static constexpr qreal panelVerticalPadding() { return 18; }
    static constexpr qreal panelSpacing() { return 18; }
    static QList<QColor> panelColors() { return {white(0.08), white(0.03)}; }
    static QColor panelOutline() { return white(0.13); }
    static constexpr qreal panelShadowOpacity() { return 0.14; }
    static constexpr qreal panelShadowRadius() { return 24; }
    static constexpr qreal panelShadowOffset() { return 10; }

    static constexpr qreal titleRowSpacing() { return 16; }
    static constexpr qreal titleRowsSpacing() { return 14; } // between the title row and the search row
    static constexpr qreal glyphSide() { return 30; }
    static constexpr qreal titleSpacing() { return 2; }
    static constexpr qreal titleOpacity() { return 0.95; }
    static constexpr qreal subtitleOpacity() { return 0.48; }
    static constexpr qreal subtitleTracking() { return 1.2; } // at least
    static constexpr qreal closeSide() { return 32; }
    static QColor closeFill() { return white(0.1); }
    static constexpr qreal closeSymbolSize() { return 12; }
    static constexpr qreal closeSymbolOpacity() { return 0.78; }

    static constexpr qreal searchHorizontalPadding() { return 14; }
    static constexpr qreal searchVerticalPadding() { return 12; }
    static constexpr qreal searchSpacing() { return 10; }
    static constexpr qreal searchRadius() { return 18; }
    static QColor searchFill() { return white(0.1); }
    static QColor searchOutline() { return white(0.14); }
    static constexpr qreal searchTextOpacity() { return 0.92; }
    static constexpr qreal placeholderOpacity() { return 0.45; }
    static QList<QColor> searchWash() {
        return {QColor::fromRgbF(0.37F, 0.78F, 1, 0.13F), QColor::fromRgbF(0.98F, 0.47F, 0.7F, 0.12F),
                QColor::fromRgbF(1, 0.82F, 0.34F, 0.1F)};
    }
    static constexpr qreal searchBadgeSide() { return 28; }
    static QList<QColor> searchBadgeColors() {
        return {QColor::fromRgbF(0.48F, 0.82F, 1), QColor::fromRgbF(0.93F, 0.48F, 0.92F),
                QColor::fromRgbF(1, 0.74F, 0.38F)};
    }
    static constexpr qreal searchSymbolSize() { return 13; }

    static constexpr qreal editSide() { return 44; }
    static constexpr qreal editSymbolSize() { return 15; }
    static constexpr qreal disabledOpacity() { return 0.42; }
    static QList<QColor> uninstallColors() { return {QColor::fromRgbF(1, 0.34F, 0.38F)}; }
    static QList<QColor> selectColors() {
        return {QColor::fromRgbF(0.39F, 0.83F, 0.63F), QColor::fromRgbF(0.3F, 0.57F, 1)};
    }
    static QList<QColor> settingsColors() {
        return {QColor::fromRgbF(0.92F, 0.48F, 1), QColor::fromRgbF(1, 0.67F, 0.34F)};
    }

    static constexpr qreal chipsSpacing() { return 10; }
    static constexpr qreal chipSpacing() { return 8; }
    static constexpr qreal chipHorizontalPadding() { return 16; }
    static constexpr qreal chipVerticalPadding() { return 10; }
    static constexpr qreal chipSymbolSize() { return 12; }
    static constexpr qreal chipOpacity() { return 0.72; }
    static QColor chipFill() { return white(0.08); }
    static QColor chipOutline() { return white(0.08); }
    static constexpr qreal mostUsedTracking() { return 0.35; } // of the style's
    static QList<QColor> mostUsedColors() {
        return {QColor::fromRgbF(1, 0.72F, 0.36F, 0.5F), QColor::fromRgbF(0.45F, 0.78F, 1, 0.44F)};
    }
    static QColor mostUsedOutline() { return white(0.18); }
    static constexpr qreal chipAccentOpacity() { return 0.34; } // of the outline of a selected category
    static constexpr qreal wheelStep() { return 0.5; }          // for each eighth of a degree that a wheel turns
};

} // namespace zelmo
