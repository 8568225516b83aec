import QtQuick
import Zelmo.Ui

// Says on a card whether its application is selected. A click on it is one on its card.
PlateItem {
    id: badge

    required property bool isSelected
    required property bool isShown
    // It comes to a card that is there already. On a new one it is just there.
    required property bool grows
    required property int duration
    property bool isGrown: !badge.grows
    property bool isComplete

    signal gone()

    Component.onCompleted: {
        badge.isComplete = true;
        badge.isGrown = Qt.binding(() => badge.isShown);
    }
    onVisibleChanged: {
        if (!badge.isGrown && badge.opacity === 0)
            badge.gone();
    }

    width: CardMetrics.badgeSide
    height: width
    radius: width / 2
    mirrored: badge.LayoutMirroring.enabled
    colors: badge.isSelected ? CardMetrics.badgeSelectedColors : CardMetrics.badgeColors
    strokeColors: [CardMetrics.badgeOutline]
    shadowOpacity: CardMetrics.badgeShadowOpacity
    shadowRadius: CardMetrics.badgeShadowRadius
    shadowOffset: CardMetrics.badgeShadowOffset
    scale: badge.isGrown ? 1 : CardMetrics.badgeHiddenScale
    opacity: badge.isGrown ? 1 : 0
    visible: opacity > 0

    Behavior on scale {
        enabled: badge.isComplete

        NumberAnimation {
            duration: badge.duration
            easing.type: Easing.OutQuad
        }
    }
    Behavior on opacity {
        enabled: badge.isComplete

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
