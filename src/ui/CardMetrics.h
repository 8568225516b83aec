#pragma once

#include "ui/StyleColors.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

// Lengths, opacities and colours of the cards that are the same for everyone; what differs from layout to layout alone
// is in CardLayout. Lengths are points, also of symbols, which are as large as text of that size.
class CardMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(qreal selectedScale READ selectedScale CONSTANT)
    Q_PROPERTY(int selectionDuration READ selectionDuration CONSTANT)
    Q_PROPERTY(QList<QColor> selectedColors READ selectedColors CONSTANT)
    Q_PROPERTY(QColor selectedOutline READ selectedOutline CONSTANT)
    Q_PROPERTY(QColor darkPlate READ darkPlate CONSTANT)
    Q_PROPERTY(QColor darkPlateOutline READ darkPlateOutline CONSTANT)
    Q_PROPERTY(QColor rowPlate READ rowPlate CONSTANT)
    Q_PROPERTY(QColor seam READ seam CONSTANT)
    Q_PROPERTY(qreal seamWidth READ seamWidth CONSTANT)
    Q_PROPERTY(qreal outlineWidth READ outlineWidth CONSTANT)
    Q_PROPERTY(qreal nameOpacity READ nameOpacity CONSTANT)
    Q_PROPERTY(qreal categoryOpacity READ categoryOpacity CONSTANT)
    Q_PROPERTY(qreal categoryTracking READ categoryTracking CONSTANT)
    Q_PROPERTY(qreal usageOpacity READ usageOpacity CONSTANT)
    Q_PROPERTY(qreal usageSmaller READ usageSmaller CONSTANT)
    Q_PROPERTY(qreal usageMinimumSize READ usageMinimumSize CONSTANT)
    Q_PROPERTY(qreal labelSpacing READ labelSpacing CONSTANT)
    Q_PROPERTY(qreal gridPadding READ gridPadding CONSTANT)
    Q_PROPERTY(qreal gridSpacing READ gridSpacing CONSTANT)
    Q_PROPERTY(qreal gridIconFrame READ gridIconFrame CONSTANT)
    Q_PROPERTY(int gridNameLines READ gridNameLines CONSTANT)
    Q_PROPERTY(qreal listHorizontalPadding READ listHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal listVerticalPadding READ listVerticalPadding CONSTANT)
    Q_PROPERTY(qreal listSpacing READ listSpacing CONSTANT)
    Q_PROPERTY(qreal listSymbolSize READ listSymbolSize CONSTANT)
    Q_PROPERTY(qreal listSymbolOpacity READ listSymbolOpacity CONSTANT)
    Q_PROPERTY(qreal minimalSpacing READ minimalSpacing CONSTANT)
    Q_PROPERTY(qreal minimalNameOpacity READ minimalNameOpacity CONSTANT)
    Q_PROPERTY(qreal minimalNameSmaller READ minimalNameSmaller CONSTANT)
    Q_PROPERTY(qreal minimalNameMinimumSize READ minimalNameMinimumSize CONSTANT)
    Q_PROPERTY(qreal tilePadding READ tilePadding CONSTANT)
    Q_PROPERTY(qreal tileSpacing READ tileSpacing CONSTANT)
    Q_PROPERTY(qreal tileLabelSpacing READ tileLabelSpacing CONSTANT)
    Q_PROPERTY(qreal tileNameMinimumSize READ tileNameMinimumSize CONSTANT)
    Q_PROPERTY(qreal tileCategorySmaller READ tileCategorySmaller CONSTANT)
    Q_PROPERTY(qreal tileCategoryMinimumSize READ tileCategoryMinimumSize CONSTANT)
    Q_PROPERTY(qreal tileCategoryOpacity READ tileCategoryOpacity CONSTANT)
    Q_PROPERTY(qreal tileSymbolSize READ tileSymbolSize CONSTANT)
    Q_PROPERTY(qreal tileSymbolOpacity READ tileSymbolOpacity CONSTANT)
    Q_PROPERTY(qreal tileSymbolPadding READ tileSymbolPadding CONSTANT)
    Q_PROPERTY(qreal badgeSide READ badgeSide CONSTANT)
    Q_PROPERTY(QList<QColor> badgeSelectedColors READ badgeSelectedColors CONSTANT)
    Q_PROPERTY(QList<QColor> badgeColors READ badgeColors CONSTANT)
    Q_PROPERTY(QColor badgeOutline READ badgeOutline CONSTANT)
    Q_PROPERTY(qreal badgeCheckmarkSize READ badgeCheckmarkSize CONSTANT)
    Q_PROPERTY(qreal badgeCircleSize READ badgeCircleSize CONSTANT)
    Q_PROPERTY(qreal badgeShadowOpacity READ badgeShadowOpacity CONSTANT)
    Q_PROPERTY(qreal badgeShadowRadius READ badgeShadowRadius CONSTANT)
    Q_PROPERTY(qreal badgeShadowOffset READ badgeShadowOffset CONSTANT)
    Q_PROPERTY(qreal badgeHiddenScale READ badgeHiddenScale CONSTANT)

public:
    using QObject::QObject;

    static constexpr qreal selectedScale() { return 0.97; }
    static constexpr int selectionDuration() { return 120; } // ms
    static QList<QColor> selectedColors() {
        return {QColor::fromRgbF(0.42F, 0.85F, 0.74F, 0.28F), QColor::fromRgbF(0.52F, 0.62F, 1, 0.24F),
                QColor::fromRgbF(1, 0.61F, 0.44F, 0.2F)};
    }
    static QColor selectedOutline() { return white(0.28); }
    static QColor darkPlate() { return black(0.12); }
    static QColor darkPlateOutline() { return white(0.08); }
    static QColor rowPlate() { return white(0.08); }
    static QColor seam() { return black(0.08); }
    static constexpr qreal seamWidth() { return 0.5; }
    static constexpr qreal outlineWidth() { return 1; }

    static constexpr qreal nameOpacity() { return 0.94; }
    static constexpr qreal categoryOpacity() { return 0.76; }
    static constexpr qreal categoryTracking() { return 1.1; } // at least
    static constexpr qreal usageOpacity() { return 0.48; }
    static constexpr qreal usageSmaller() { return 1; } // than the category line
    static constexpr qreal usageMinimumSize() { return 9; }
    static constexpr qreal labelSpacing() { return 5; }

    static constexpr qreal gridPadding() { return 14; }
    static constexpr qreal gridSpacing() { return 12; }
    static constexpr qreal gridIconFrame() { return 108; }
    static constexpr int gridNameLines() { return 2; } // at most; a longer name ends in an ellipsis

    static constexpr qreal listHorizontalPadding() { return 16; }
    static constexpr qreal listVerticalPadding() { return 12; }
    static constexpr qreal listSpacing() { return 14; }
    static constexpr qreal listSymbolSize() { return 14; }
    static constexpr qreal listSymbolOpacity() { return 0.86; }

    static constexpr qreal minimalSpacing() { return 8; }
    static constexpr qreal minimalNameOpacity() { return 0.92; }
    static constexpr qreal minimalNameSmaller() { return 3; } // than in the other layouts
    static constexpr qreal minimalNameMinimumSize() { return 10; }

    static constexpr qreal tilePadding() { return 12; }
    static QColor tileVeil() { return white(0.035); }
    static constexpr qreal tileSpacing() { return 6; } // between the icon and the name
    static constexpr qreal tileLabelSpacing() { return 2; }
    static constexpr qreal tileNameMinimumSize() { return 13; }
    static constexpr qreal tileCategorySmaller() { return 1; }
    static constexpr qreal tileCategoryMinimumSize() { return 9; }
    static constexpr qreal tileCategoryOpacity() { return 0.62; }
    static constexpr qreal tileSymbolSize() { return 17; }
    static constexpr qreal tileSymbolOpacity() { return 0.32; }
    static constexpr qreal tileSymbolPadding() { return 4; }

    static constexpr qreal badgeSide() { return 24; }
    static QList<QColor> badgeSelectedColors() {
        return {QColor::fromRgbF(0.33F, 0.83F, 0.62F), QColor::fromRgbF(0.31F, 0.56F, 1)};
    }
    static QList<QColor> badgeColors() { return {black(0.7)}; }
    static QColor badgeOutline() { return white(0.62); }
    static constexpr qreal badgeCheckmarkSize() { return 10; }
    static constexpr qreal badgeCircleSize() { return 12; }
    static constexpr qreal badgeShadowOpacity() { return 0.26; }
    static constexpr qreal badgeShadowRadius() { return 6; }
    static constexpr qreal badgeShadowOffset() { return 3; }
    static constexpr qreal badgeHiddenScale() { return 0.00001; }
};

} // namespace zelmo
