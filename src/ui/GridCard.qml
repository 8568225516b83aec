import QtQuick
import Zelmo.Ui

AppTileCard {
    id: card

    AppIconItem {
        x: (parent.width - width) / 2
        y: CardMetrics.gridPadding + (CardMetrics.gridIconFrame - height) / 2
        width: card.style.layout.iconSide
        height: width
        cache: card.icons
        icon: card.appIcon
        smooth: card.isScaled
    }
    CardLabels {
        x: CardMetrics.gridPadding
        y: CardMetrics.gridPadding + CardMetrics.gridIconFrame + CardMetrics.gridSpacing
        width: parent.width - 2 * CardMetrics.gridPadding
        card: card
    }
}
