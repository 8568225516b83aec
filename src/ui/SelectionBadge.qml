import QtQuick
import Zelmo.Ui

// Says on a card whether its application is selected. A click on it is one on its card.
PlateItem {
    id: badge

    required property bool isSelected
    required property bool isShown
    required property int duration

    width: CardMetrics.badgeSide
    height: width
    radius: width / 2
    colors: badge.isSelected ? CardMetrics.badgeSelectedColors : CardMetrics.badgeColors
    strokeColors: [CardMetrics.badgeOutline]
    shadowOpacity: CardMetrics.badgeShadowOpacity
    shadowRadius: CardMetrics.badgeShadowRadius
    shadowOffset: CardMetrics.badgeShadowOffset
    scale: badge.isShown ? 1 : CardMetrics.badgeHiddenScale
    opacity: badge.isShown ? 1 : 0
    visible: opacity > 0

    Behavior on scale {
        NumberAnimation {
            duration: badge.duration
            easing.type: Easing.OutQuad
        }
    }
    Behavior on opacity {
        NumberAnimation {
            duration: badge.duration
            easing.type: Easing.OutQuad
        }
    }

    SymbolItem {
        anchors.centerIn: parent
        name: badge.isSelected ? "checkmark" : "circle"
        textSize: badge.isSelected ? CardMetrics.badgeCheckmarkSize : CardMetrics.badgeCircleSize
        weight: Font.Black
    }
}
