import QtQuick
import Zelmo.Ui

AppTileCard {
    id: card

    PlateItem {
        anchors.fill: parent
        z: -2
        mirrored: card.LayoutMirroring.enabled
        colors: card.tileColors

        Rectangle {
            anchors.fill: parent
            color: CardMetrics.tileVeil
        }
    }
    SymbolItem {
        anchors {
            top: parent.top
            right: parent.right
            margins: CardMetrics.tilePadding + CardMetrics.tileSymbolPadding
        }
        name: card.symbol
        textSize: CardMetrics.tileSymbolSize
        weight: Font.DemiBold
        opacity: CardMetrics.tileSymbolOpacity
    }
    AppIconItem {
        anchors {
            left: parent.left
            leftMargin: CardMetrics.tilePadding
            bottom: labels.top
            bottomMargin: CardMetrics.tileSpacing
        }
        width: card.style.layout.iconSide
        height: width
        cache: card.icons
        icon: card.appIcon
    }
    Column {
        id: labels

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            margins: CardMetrics.tilePadding
        }
        spacing: CardMetrics.tileLabelSpacing

        CardName {
            width: parent.width
            card: card
            horizontalAlignment: Text.AlignLeft
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: card.categoryLabel
            color: "white"
            opacity: CardMetrics.tileCategoryOpacity
            font: card.style.appCategoryFont
        }
    }
}
