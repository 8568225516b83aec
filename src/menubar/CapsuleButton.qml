import QtQuick
import Zelmo.MenuBar
import Zelmo.Ui

// A capsule as wide as its title.
ScaleGlassButtonStyle {
    id: button

    required property string title
    property bool emphasis: false
    property bool isDestructive: false
    property bool showsFocus: false

    signal triggered()

    width: label.width + 2 * MenuBarMetrics.buttonHorizontalPadding
    height: label.height + 2 * MenuBarMetrics.buttonVerticalPadding
    isPressed: tap.pressed
    activeFocusOnTab: true

    Keys.onReturnPressed: button.triggered()
    Keys.onEnterPressed: button.triggered()
    Keys.onSpacePressed: button.triggered()

    Accessible.role: Accessible.Button
    Accessible.name: button.title
    Accessible.focusable: true
    Accessible.focused: button.activeFocus
    Accessible.onPressAction: button.triggered()

    PlateItem {
        objectName: "fill"
        anchors.fill: parent
        radius: height / 2
        colors: [button.emphasis ? MenuBarMetrics.emphasizedButtonColor : MenuBarMetrics.buttonColor]
    }
    PlateItem {
        objectName: "outline"
        anchors.fill: parent
        anchors.margins: -strokeWidth / 2
        radius: height / 2
        strokeColors: [MenuBarMetrics.buttonOutlineColor]
        strokeWidth: MenuBarMetrics.buttonOutlineWidth
    }
    Text {
        id: label

        anchors.centerIn: parent
        textFormat: Text.PlainText
        text: button.title
        color: button.isDestructive ? MenuBarMetrics.destructiveTitleColor : MenuBarMetrics.titleColor
        font.pixelSize: MenuBarMetrics.titleFontSize
        font.weight: Font.DemiBold
    }
    PanelFocusRing {
        anchors.fill: parent
        cornerRadius: height / 2
        visible: button.showsFocus && button.activeFocus
    }
    TapHandler {
        id: tap

        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.triggered()
    }
}
