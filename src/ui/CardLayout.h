#pragma once

#include "appearance/LauncherInterfaceStyle.h"

#include <QColor>
#include <QObject>

namespace zelmo {

// How one layout of the wall places and sizes its cards. Lengths are points. A value.
struct CardLayout {
    Q_GADGET
    Q_PROPERTY(int columns MEMBER columns CONSTANT)
    Q_PROPERTY(qreal columnWidth MEMBER columnWidth CONSTANT)
    Q_PROPERTY(qreal columnSpacing MEMBER columnSpacing CONSTANT)
    Q_PROPERTY(qreal rowSpacing MEMBER rowSpacing CONSTANT)
    Q_PROPERTY(qreal iconSide MEMBER iconSide CONSTANT)
    Q_PROPERTY(qreal selectedRadius MEMBER selectedRadius CONSTANT)
    Q_PROPERTY(qreal plateRadius MEMBER plateRadius CONSTANT)
    Q_PROPERTY(qreal badgeLeft MEMBER badgeLeft CONSTANT)
    Q_PROPERTY(qreal badgeTop MEMBER badgeTop CONSTANT)

public:
    int columns;
    qreal columnWidth; // of a single column: at most
    qreal columnSpacing;
    qreal rowSpacing;
    qreal minimumHeight;
    qreal iconSide;
    qreal selectedRadius; // of the plate of a selected card
    qreal plateRadius;    // of the plate of any other card
    qreal badgeLeft;
    qreal badgeTop;
};

const CardLayout& cardLayout(AppTileVariant variant);

// What lies behind a card that is not selected. Nothing where there is neither a fill nor an outline.
struct CardPlate {
    QColor fill = Qt::transparent;
    QColor outline = Qt::transparent;
    qreal outlineWidth = 1;
};

enum class TileBackgrounds { shown, none };

CardPlate cardPlate(AppTileVariant variant, TileBackgrounds backgrounds);

} // namespace zelmo
