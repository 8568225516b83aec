#pragma once

#include "ui/StyleColors.h"

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
    Q_PROPERTY(qreal areaTopPadding READ areaTopPadding CONSTANT)
    Q_PROPERTY(qreal areaSidePadding READ areaSidePadding CONSTANT)
    Q_PROPERTY(qreal areaBottomPadding READ areaBottomPadding CONSTANT)
    Q_PROPERTY(qreal emptyTopPadding READ emptyTopPadding CONSTANT)
    Q_PROPERTY(qreal emptySpacing READ emptySpacing CONSTANT)
    Q_PROPERTY(qreal emptySymbolSize READ emptySymbolSize CONSTANT)
    Q_PROPERTY(qreal emptySymbolOpacity READ emptySymbolOpacity CONSTANT)
    Q_PROPERTY(qreal emptyTitleSize READ emptyTitleSize CONSTANT)
    Q_PROPERTY(qreal emptyTitleOpacity READ emptyTitleOpacity CONSTANT)
    Q_PROPERTY(qreal emptyTextSize READ emptyTextSize CONSTANT)
    Q_PROPERTY(qreal emptyTextOpacity READ emptyTextOpacity CONSTANT)
    Q_PROPERTY(qreal indicatorWidth READ indicatorWidth CONSTANT)
    Q_PROPERTY(qreal indicatorInset READ indicatorInset CONSTANT)
    Q_PROPERTY(qreal indicatorOpacity READ indicatorOpacity CONSTANT)
    Q_PROPERTY(qreal indicatorMinimumHeight READ indicatorMinimumHeight CONSTANT)
    Q_PROPERTY(qreal ringWidth READ ringWidth CONSTANT)
    Q_PROPERTY(qreal ringGap READ ringGap CONSTANT)
    Q_PROPERTY(QColor ringColor READ ringColor CONSTANT)
    Q_PROPERTY(QColor ringEdgeColor READ ringEdgeColor CONSTANT)
    Q_PROPERTY(int tipDelay READ tipDelay CONSTANT)
    Q_PROPERTY(qreal tipGap READ tipGap CONSTANT)
    Q_PROPERTY(qreal tipHorizontalPadding READ tipHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal tipVerticalPadding READ tipVerticalPadding CONSTANT)
    Q_PROPERTY(qreal tipRadius READ tipRadius CONSTANT)
    Q_PROPERTY(int tipFontSize READ tipFontSize CONSTANT)
    Q_PROPERTY(QColor tipFill READ tipFill CONSTANT)
    Q_PROPERTY(QColor tipOutline READ tipOutline CONSTANT)
    Q_PROPERTY(QColor tipText READ tipText CONSTANT)

public:
    using QObject::QObject;

    static constexpr qreal contentMaximumWidth() { return 1440; }
    static constexpr qreal contentSpacing() { return 22; }
    static constexpr qreal contentHorizontalPadding() { return 34; }
    static constexpr qreal contentVerticalPadding() { return 24; }

    static constexpr qreal areaTopPadding() { return 4; }
    static constexpr qreal areaSidePadding() { return 4; }
    static constexpr qreal areaBottomPadding() { return 42; }

    static constexpr qreal emptyTopPadding() { return 96; }
    static constexpr qreal emptySpacing() { return 10; }
    static constexpr qreal emptySymbolSize() { return 34; } // of text
    static constexpr qreal emptySymbolOpacity() { return 0.6; }
    static constexpr qreal emptyTitleSize() { return 18; }
    static constexpr qreal emptyTitleOpacity() { return 0.86; }
    static constexpr qreal emptyTextSize() { return 13; }
    static constexpr qreal emptyTextOpacity() { return 0.56; }

    static constexpr qreal indicatorWidth() { return 6; }
    static constexpr qreal indicatorInset() { return 5; } // from the edge of the wall
    static constexpr qreal indicatorOpacity() { return 0.35; }
    static constexpr qreal indicatorMinimumHeight() { return 36; }

    static constexpr qreal ringWidth() { return 2.5; }
    static constexpr qreal ringGap() { return 2; }
    static QColor ringColor() { return white(0.95); }
    static QColor ringEdgeColor() { return black(0.45); }

    static constexpr int tipDelay() { return 600; } // ms
    static constexpr qreal tipGap() { return 8; }
    static constexpr qreal tipHorizontalPadding() { return 10; }
    static constexpr qreal tipVerticalPadding() { return 6; }
    static constexpr qreal tipRadius() { return 8; }
    static constexpr int tipFontSize() { return 12; }
    static QColor tipFill() { return black(0.82); }
    static QColor tipOutline() { return white(0.16); }
    static QColor tipText() { return white(0.95); }
};

} // namespace zelmo
