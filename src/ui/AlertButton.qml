import QtQuick
import Zelmo.Ui

Rectangle {
    id: button

    property alias text: label.text
    property bool isDefault: false

    signal pressed()

    width: Math.max(AlertMetrics.buttonMinimumWidth, label.implicitWidth + 2 * AlertMetrics.buttonPadding)
    height: AlertMetrics.buttonHeight
    radius: AlertMetrics.buttonRadius
    color: button.isDefault ? AlertMetrics.defaultButton : AlertMetrics.otherButton
    opacity: tap.pressed ? AlertMetrics.pressedOpacity : 1
    activeFocusOnTab: true

    Keys.onReturnPressed: button.pressed()
    Keys.onEnterPressed: button.pressed()
    Keys.onSpacePressed: button.pressed()
    Keys.onLeftPressed: button.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onRightPressed: button.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    Accessible.role: Accessible.Button
    Accessible.name: label.text
    Accessible.focusable: true
    Accessible.focused: button.activeFocus
    Accessible.defaultButton: button.isDefault
    Accessible.onPressAction: button.pressed()

    Text {
        id: label

        anchors.centerIn: parent
        textFormat: Text.PlainText
        color: AlertMetrics.text
        font.pixelSize: AlertMetrics.buttonFontSize
        font.weight: Font.DemiBold
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: -AlertMetrics.focusRingGap
        radius: parent.radius + AlertMetrics.focusRingGap
        color: "transparent"
        border.color: AlertMetrics.focusRing
        border.width: AlertMetrics.focusRingWidth
        visible: button.activeFocus
    }

    TapHandler {
        id: tap

        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.pressed()
    }
}
