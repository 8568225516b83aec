import QtQuick
import Zelmo.Ui

Item {
    id: card

    required property WallStyle style
    required property IconCache icons
    property var app
    property string name
    property var appIcon
    property string categoryLabel
    property color accentColor

    signal launched(var app)

    width: WallMetrics.columnWidth
    implicitHeight: labels.y + labels.height + WallMetrics.cardPadding

    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.onPressAction: card.launched(card.app)

    AppIconItem {
        x: (parent.width - width) / 2
        y: WallMetrics.cardPadding + (WallMetrics.cardIconFrame - height) / 2
        width: WallMetrics.cardIconSide
        height: width
        cache: card.icons
        icon: card.appIcon
    }

    Column {
        id: labels

        x: WallMetrics.cardPadding
        y: WallMetrics.cardPadding + WallMetrics.cardIconFrame + WallMetrics.cardSpacing
        width: parent.width - 2 * WallMetrics.cardPadding
        spacing: WallMetrics.labelSpacing

        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: card.name
            color: card.style.textColor
            opacity: WallMetrics.nameOpacity
            font.pixelSize: card.style.appNameFontSize
            font.weight: Font.DemiBold
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: card.categoryLabel
            color: card.accentColor
            opacity: WallMetrics.categoryOpacity
            font.pixelSize: card.style.appCategoryFontSize
            font.weight: Font.Bold
            font.capitalization: Font.AllUppercase
            font.letterSpacing: WallMetrics.categoryTracking
        }
    }

    TapHandler {
        onTapped: card.launched(card.app)
    }
}
