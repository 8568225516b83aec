import QtQuick
import Zelmo.Ui

Item {
    id: card

    required property WallStyle style
    required property IconCache icons
    required property var app
    required property string name
    required property var appIcon
    required property string categoryLabel
    required property color accentColor
    required property bool selected
    property bool isEditing: false

    signal launched()
    signal selectionToggled()

    width: WallMetrics.columnWidth

    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.checkable: card.isEditing
    Accessible.checked: card.selected
    Accessible.onPressAction: card.isEditing ? card.selectionToggled() : card.launched()

    scale: card.selected ? WallMetrics.selectedScale : 1

    Behavior on scale {
        NumberAnimation {
            duration: WallMetrics.selectionDuration
            easing.type: Easing.OutCubic
        }
    }

    PlateItem {
        anchors.fill: parent
        visible: card.selected
        radius: WallMetrics.plateRadius
        colors: [WallMetrics.plateTopColor, WallMetrics.plateMiddleColor, WallMetrics.plateBottomColor]
        direction: PlateItem.Down
        strokeColors: [Qt.alpha("white", WallMetrics.plateOutlineOpacity)]
    }

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
            wrapMode: Text.Wrap
            maximumLineCount: WallMetrics.nameLines
            textFormat: Text.PlainText
            text: card.name
            color: card.style.textColor
            opacity: WallMetrics.nameOpacity
            font: card.style.appNameFont
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: card.categoryLabel
            color: card.accentColor
            opacity: WallMetrics.categoryOpacity
            font: card.style.appCategoryFont
        }
    }

    SelectionBadge {
        x: WallMetrics.badgeLeft
        y: WallMetrics.badgeTop
        isSelected: card.selected
        scale: card.isEditing ? 1 : 0
        opacity: scale
        visible: scale > 0

        Behavior on scale {
            NumberAnimation {
                duration: WallMetrics.selectionDuration
                easing.type: Easing.OutCubic
            }
        }
    }

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: card.isEditing ? card.selectionToggled() : card.launched()
    }
}
