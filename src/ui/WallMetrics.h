#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

// Lengths, opacities and weights of the wall that are the same for everyone, for the views to bind
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
    Q_PROPERTY(qreal categoryTracking READ categoryTracking CONSTANT)
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
    Q_PROPERTY(qreal subtitleTracking READ subtitleTracking CONSTANT)
    Q_PROPERTY(qreal searchHorizontalPadding READ searchHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal searchVerticalPadding READ searchVerticalPadding CONSTANT)
    Q_PROPERTY(qreal searchRadius READ searchRadius CONSTANT)
    Q_PROPERTY(qreal searchFillOpacity READ searchFillOpacity CONSTANT)
    Q_PROPERTY(qreal searchOutlineOpacity READ searchOutlineOpacity CONSTANT)
    Q_PROPERTY(qreal searchTextOpacity READ searchTextOpacity CONSTANT)
    Q_PROPERTY(qreal placeholderOpacity READ placeholderOpacity CONSTANT)
    Q_PROPERTY(qreal searchHeight READ searchHeight CONSTANT)
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

    static constexpr qreal indicatorWidth() { return 6; }
    static constexpr qreal indicatorOpacity() { return 0.35; }
    static constexpr qreal indicatorMinimumHeight() { return 36; }
};

} // namespace zelmo
