import QtQuick
import Zelmo.Ui

// One of the round buttons beside the search field.
Item {
    id: button

    required property string title
    required property string helpText
    required property string symbol
    property color startColor
    property color endColor: startColor

    signal pressed()

    width: WallMetrics.searchHeight
    height: width
    opacity: button.enabled ? 1 : WallMetrics.disabledOpacity

    Accessible.role: Accessible.Button
    Accessible.name: button.title
    Accessible.description: button.helpText
    Accessible.onPressAction: button.pressed()

    CircleItem {
        anchors.fill: parent
        startColor: button.startColor
        endColor: button.endColor
    }
    SymbolItem {
        anchors.centerIn: parent
        width: WallMetrics.editSymbolSide
        height: width
        name: button.symbol
        weight: Font.Medium
        color: "white"
    }
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.pressed()
    }
}
