import QtQuick
import Zelmo.Ui

AppTileCard {
    id: card

    AppIconItem {
        id: icon

        anchors {
            left: parent.left
            leftMargin: CardMetrics.listHorizontalPadding
            verticalCenter: parent.verticalCenter
        }
        width: card.style.layout.iconSide
        height: width
        cache: card.icons
        icon: card.appIcon
    }
    CardLabels {
        anchors {
            left: icon.right
            right: mark.left
            leftMargin: CardMetrics.listSpacing
            rightMargin: CardMetrics.listSpacing
            verticalCenter: parent.verticalCenter
        }
        card: card
        alignment: Text.AlignLeft
    }
    SymbolItem {
        id: mark

        anchors {
            right: parent.right
            rightMargin: CardMetrics.listHorizontalPadding
            verticalCenter: parent.verticalCenter
        }
        name: card.symbol
        textSize: CardMetrics.listSymbolSize
        weight: Font.Bold
        color: card.accentColor
        opacity: CardMetrics.listSymbolOpacity
    }
}
