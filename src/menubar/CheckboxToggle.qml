import QtQuick
import Zelmo.MenuBar
import Zelmo.Ui

// A box with a title, checked or not.
Item {
    id: toggle

    required property string title
    required property bool isOn
    property bool showsFocus: false

    signal toggled()

    width: MenuBarMetrics.toggleMaximumWidth
    height: label.height
    activeFocusOnTab: true

    Keys.onReturnPressed: toggle.toggled()
    Keys.onEnterPressed: toggle.toggled()
    Keys.onSpacePressed: toggle.toggled()

    Accessible.role: Accessible.CheckBox
    Accessible.name: toggle.title
    Accessible.checkable: true
    Accessible.checked: toggle.isOn
    Accessible.focusable: true
    Accessible.focused: toggle.activeFocus
    Accessible.onPressAction: toggle.toggled()
    Accessible.onToggleAction: toggle.toggled()

    Row {
        id: row

        anchors.centerIn: parent
        spacing: MenuBarMetrics.toggleSpacing

        Item {
            id: box

            anchors.verticalCenter: parent.verticalCenter
            width: MenuBarMetrics.boxSide
            height: width

            PlateItem {
                objectName: "box"
                anchors.fill: parent
                radius: MenuBarMetrics.boxRadius
                colors: [toggle.isOn ? MenuBarMetrics.toggleColor : MenuBarMetrics.boxColor]
                strokeColors: [MenuBarMetrics.toggleColor]
                strokeWidth: MenuBarMetrics.boxOutlineWidth
            }
            SymbolItem {
                anchors.centerIn: parent
                width: MenuBarMetrics.checkmarkSide
                height: width
                visible: toggle.isOn
                name: "checkmark"
                weight: Font.Bold
                color: MenuBarMetrics.checkmarkColor
            }
        }
        Text {
            id: label

            width: Math.min(implicitWidth, toggle.width - box.width - row.spacing)
            textFormat: Text.PlainText
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: MenuBarMetrics.toggleMinimumFontSize
            elide: Text.ElideRight
            text: toggle.title
            color: MenuBarMetrics.toggleTitleColor
            font.pixelSize: MenuBarMetrics.titleFontSize
            font.weight: Font.DemiBold
        }
    }
    PanelFocusRing {
        anchors.centerIn: parent
        width: row.width
        height: row.height
        cornerRadius: MenuBarMetrics.boxRadius
        visible: toggle.showsFocus && toggle.activeFocus
    }
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: toggle.toggled()
    }
}
