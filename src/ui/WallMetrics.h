#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

// Lengths, opacities and colours of the wall that are the same for everyone, for the views to bind
// to. Lengths are points; opacities go from 0 to 1.
class WallMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(qreal contentMaximumWidth READ contentMaximumWidth CONSTANT)
    Q_PROPERTY(qreal contentSpacing READ contentSpacing CONSTANT)
    Q_PROPERTY(qreal contentHorizontalPadding READ contentHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal contentVerticalPadding READ contentVerticalPadding CONSTANT)
    Q_PROPERTY(int gridColumns READ gridColumns CONSTANT)
    Q_PROPERTY(qreal columnWidth READ columnWidth CONSTANT)
    Q_PROPERTY(qreal columnSpacing READ columnSpacing CONSTANT)
    Q_PROPERTY(qreal rowSpacing READ rowSpacing CONSTANT)
    Q_PROPERTY(qreal areaTopPadding READ areaTopPadding CONSTANT)
    Q_PROPERTY(qreal areaBottomPadding READ areaBottomPadding CONSTANT)
    Q_PROPERTY(qreal cardPadding READ cardPadding CONSTANT)
    Q_PROPERTY(qreal cardSpacing READ cardSpacing CONSTANT)
    Q_PROPERTY(qreal cardMinimumHeight READ cardMinimumHeight CONSTANT)
    Q_PROPERTY(qreal cardPlainHeight READ cardPlainHeight CONSTANT)
    Q_PROPERTY(qreal cardIconFrame READ cardIconFrame CONSTANT)
    Q_PROPERTY(int cardIconSide READ cardIconSide CONSTANT)
    Q_PROPERTY(qreal labelSpacing READ labelSpacing CONSTANT)
    Q_PROPERTY(int nameLines READ nameLines CONSTANT)
    Q_PROPERTY(qreal nameOpacity READ nameOpacity CONSTANT)
    Q_PROPERTY(qreal categoryOpacity READ categoryOpacity CONSTANT)
    Q_PROPERTY(qreal panelRadius READ panelRadius CONSTANT)
    Q_PROPERTY(qreal panelHorizontalPadding READ panelHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal panelVerticalPadding READ panelVerticalPadding CONSTANT)
    Q_PROPERTY(qreal panelSpacing READ panelSpacing CONSTANT)
    Q_PROPERTY(qreal panelTopOpacity READ panelTopOpacity CONSTANT)
    Q_PROPERTY(qreal panelBottomOpacity READ panelBottomOpacity CONSTANT)
    Q_PROPERTY(qreal panelOutlineOpacity READ panelOutlineOpacity CONSTANT)
    Q_PROPERTY(qreal titleSpacing READ titleSpacing CONSTANT)
    Q_PROPERTY(qreal titleOpacity READ titleOpacity CONSTANT)
    Q_PROPERTY(qreal subtitleOpacity READ subtitleOpacity CONSTANT)
    Q_PROPERTY(qreal searchHorizontalPadding READ searchHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal searchVerticalPadding READ searchVerticalPadding CONSTANT)
    Q_PROPERTY(qreal searchRadius READ searchRadius CONSTANT)
    Q_PROPERTY(qreal searchFillOpacity READ searchFillOpacity CONSTANT)
    Q_PROPERTY(qreal searchOutlineOpacity READ searchOutlineOpacity CONSTANT)
    Q_PROPERTY(qreal searchTextOpacity READ searchTextOpacity CONSTANT)
    Q_PROPERTY(qreal placeholderOpacity READ placeholderOpacity CONSTANT)
    Q_PROPERTY(qreal searchHeight READ searchHeight CONSTANT)
    Q_PROPERTY(qreal searchSpacing READ searchSpacing CONSTANT)
    Q_PROPERTY(qreal editSymbolSide READ editSymbolSide CONSTANT)
    Q_PROPERTY(qreal disabledOpacity READ disabledOpacity CONSTANT)
    Q_PROPERTY(QColor uninstallColor READ uninstallColor CONSTANT)
    Q_PROPERTY(QColor selectStartColor READ selectStartColor CONSTANT)
    Q_PROPERTY(QColor selectEndColor READ selectEndColor CONSTANT)
    Q_PROPERTY(qreal badgeSide READ badgeSide CONSTANT)
    Q_PROPERTY(qreal badgeLeft READ badgeLeft CONSTANT)
    Q_PROPERTY(qreal badgeTop READ badgeTop CONSTANT)
    Q_PROPERTY(qreal badgeCheckmarkSide READ badgeCheckmarkSide CONSTANT)
    Q_PROPERTY(qreal badgeCircleSide READ badgeCircleSide CONSTANT)
    Q_PROPERTY(qreal badgeOutlineOpacity READ badgeOutlineOpacity CONSTANT)
    Q_PROPERTY(qreal badgeFillOpacity READ badgeFillOpacity CONSTANT)
    Q_PROPERTY(QColor badgeStartColor READ badgeStartColor CONSTANT)
    Q_PROPERTY(QColor badgeEndColor READ badgeEndColor CONSTANT)
    Q_PROPERTY(qreal selectedScale READ selectedScale CONSTANT)
    Q_PROPERTY(int selectionDuration READ selectionDuration CONSTANT)
    Q_PROPERTY(qreal plateRadius READ plateRadius CONSTANT)
    Q_PROPERTY(qreal plateOutlineOpacity READ plateOutlineOpacity CONSTANT)
    Q_PROPERTY(QColor plateTopColor READ plateTopColor CONSTANT)
    Q_PROPERTY(QColor plateMiddleColor READ plateMiddleColor CONSTANT)
    Q_PROPERTY(QColor plateBottomColor READ plateBottomColor CONSTANT)
    Q_PROPERTY(qreal indicatorWidth READ indicatorWidth CONSTANT)
    Q_PROPERTY(qreal indicatorOpacity READ indicatorOpacity CONSTANT)
    Q_PROPERTY(qreal indicatorMinimumHeight READ indicatorMinimumHeight CONSTANT)

public:
    using QObject::QObject;

    static constexpr qreal contentMaximumWidth() { return 1440; }
    static constexpr qreal contentSpacing() { return 22; }
    static constexpr qreal contentHorizontalPadding() { return 34; }
    static constexpr qreal contentVerticalPadding() { return 24; }

    static constexpr int gridColumns() { return 6; }
    static constexpr qreal columnWidth() { return 154; }
    static constexpr qreal columnSpacing() { return 22; }
    static constexpr qreal rowSpacing() { return 24; }
    static constexpr qreal areaTopPadding() { return 4; }
    static constexpr qreal areaBottomPadding() { return 42; }

    static constexpr qreal cardPadding() { return 14; }
    static constexpr qreal cardSpacing() { return 12; }
    static constexpr qreal cardMinimumHeight() { return 166; }
    static constexpr qreal cardIconFrame() { return 108; }
    static constexpr int cardIconSide() { return 104; }
    static constexpr qreal labelSpacing() { return 5; }
    // Of a card without its two lines of text.
    static constexpr qreal cardPlainHeight() {
        return 2 * cardPadding() + cardIconFrame() + cardSpacing() + labelSpacing();
    }
    static constexpr int nameLines() { return 2; } // at most; a longer name ends in an ellipsis
    static constexpr qreal nameOpacity() { return 0.94; }
    static constexpr qreal categoryOpacity() { return 0.76; }
    static constexpr qreal categoryTracking() { return 1.1; }

    static constexpr qreal panelRadius() { return 32; }
    static constexpr qreal panelHorizontalPadding() { return 24; }
    static constexpr qreal panelVerticalPadding() { return 18; }
    static constexpr qreal panelSpacing() { return 18; }
    static constexpr qreal panelTopOpacity() { return 0.08; }
    static constexpr qreal panelBottomOpacity() { return 0.03; }
    static constexpr qreal panelOutlineOpacity() { return 0.13; }
    static constexpr qreal titleSpacing() { return 2; }
    static constexpr qreal titleOpacity() { return 0.95; }
    static constexpr qreal subtitleOpacity() { return 0.48; }
    static constexpr qreal subtitleTracking() { return 1.2; }

    static constexpr qreal searchHorizontalPadding() { return 14; }
    static constexpr qreal searchVerticalPadding() { return 12; }
    static constexpr qreal searchRadius() { return 18; }
    static constexpr qreal searchFillOpacity() { return 0.1; }
    static constexpr qreal searchOutlineOpacity() { return 0.14; }
    static constexpr qreal searchTextOpacity() { return 0.92; }
    static constexpr qreal placeholderOpacity() { return 0.45; }
    static constexpr qreal searchHeight() { return 44; } // of the controls beside the field

    static constexpr qreal searchSpacing() { return 10; }
    static constexpr qreal editSymbolSide() { return 19; } // of a symbol at text size 15
    static constexpr qreal disabledOpacity() { return 0.42; }
    static QColor uninstallColor() { return QColor::fromRgbF(1, 0.34F, 0.38F); }
    static QColor selectStartColor() { return QColor::fromRgbF(0.39F, 0.83F, 0.63F); }
    static QColor selectEndColor() { return QColor::fromRgbF(0.3F, 0.57F, 1); }
    static constexpr qreal badgeSide() { return 24; }
    static constexpr qreal badgeLeft() { return 10; }
    static constexpr qreal badgeTop() { return 8; }
    static constexpr qreal badgeCheckmarkSide() { return 13; }
    static constexpr qreal badgeCircleSide() { return 14; }
    static constexpr qreal badgeOutlineOpacity() { return 0.62; }
    static constexpr qreal badgeFillOpacity() { return 0.7; }
    static QColor badgeStartColor() { return QColor::fromRgbF(0.33F, 0.83F, 0.62F); }
    static QColor badgeEndColor() { return QColor::fromRgbF(0.31F, 0.56F, 1); }
    static constexpr qreal selectedScale() { return 0.97; }
    static constexpr int selectionDuration() { return 120; } // ms
    static constexpr qreal plateRadius() { return 22; }
    static constexpr qreal plateOutlineOpacity() { return 0.2; }
    static QColor plateTopColor() { return QColor::fromRgbF(0.42F, 0.85F, 0.74F, 0.28F); }
    static QColor plateMiddleColor() { return QColor::fromRgbF(0.52F, 0.62F, 1, 0.24F); }
    static QColor plateBottomColor() { return QColor::fromRgbF(1, 0.61F, 0.44F, 0.2F); }

    static constexpr qreal indicatorWidth() { return 6; }
    static constexpr qreal indicatorOpacity() { return 0.35; }
    static constexpr qreal indicatorMinimumHeight() { return 36; }
};

} // namespace zelmo
