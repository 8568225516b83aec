import QtQuick
import Zelmo.Ui

// A symbol on a coloured circle.
PlateItem {
    id: button

    required property string title
    required property string symbol
    property string helpText
    property HelpTip tip: null
    property alias symbolSize: label.textSize
    property alias symbolWeight: label.weight
    property alias symbolColor: label.color
    property alias symbolOpacity: label.opacity

    signal pressed()

    height: width
    radius: width / 2
    mirrored: button.LayoutMirroring.enabled
    activeFocusOnTab: button.enabled

    Keys.onReturnPressed: button.pressed()
    Keys.onEnterPressed: button.pressed()
    Keys.onSpacePressed: button.pressed()
    Keys.onLeftPressed: button.nextItemInFocusChain(button.LayoutMirroring.enabled).forceActiveFocus(Qt.BacktabFocusReason)
    Keys.onRightPressed: button.nextItemInFocusChain(!button.LayoutMirroring.enabled).forceActiveFocus(Qt.TabFocusReason)

    Accessible.role: Accessible.Button
    Accessible.name: button.title
    Accessible.description: button.helpText
    Accessible.focusable: button.enabled
    Accessible.onPressAction: button.enabled && button.pressed()

    SymbolItem {
        id: label

        anchors.centerIn: parent
        name: button.symbol
    }
    FocusRing {
        cornerRadius: button.radius
    }
    HelpArea {
        anchors.fill: parent
        text: button.helpText
        tip: button.tip
    }
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.pressed()
    }
}
