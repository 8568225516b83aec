import QtQuick
import Zelmo.Ui

AppTileCard {
    id: card

    AppIconItem {
        id: icon

        x: (parent.width - width) / 2
        y: Math.floor((parent.height - height - CardMetrics.minimalSpacing - name.height) / 2)
        width: card.style.layout.iconSide
        height: width
        cache: card.icons
        icon: card.appIcon
        smooth: card.isScaled
    }
    CardName {
        id: name

        anchors {
            top: icon.bottom
            topMargin: CardMetrics.minimalSpacing
        }
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        card: card
        opacity: CardMetrics.minimalNameOpacity
    }
}
