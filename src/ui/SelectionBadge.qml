import QtQuick
import Zelmo.Ui

// Says on a card whether its application is selected.
Item {
    id: badge

    required property bool isSelected

    width: WallMetrics.badgeSide
    height: width

    CircleItem {
        anchors.fill: parent
        startColor: badge.isSelected ? WallMetrics.badgeStartColor : Qt.alpha("black", WallMetrics.badgeFillOpacity)
        endColor: badge.isSelected ? WallMetrics.badgeEndColor : startColor
        outlineColor: Qt.alpha("white", WallMetrics.badgeOutlineOpacity)
    }
    SymbolItem {
        anchors.centerIn: parent
        width: badge.isSelected ? WallMetrics.badgeCheckmarkSide : WallMetrics.badgeCircleSide
        height: width
        name: badge.isSelected ? "checkmark" : "circle"
        weight: Font.Black
        color: "white"
    }
}
