import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings

T.Button {
    id: button

    required property SettingsPalette colors

    // Whole, so that its right edge is where those of the other controls are.
    implicitWidth: Math.ceil(contentItem.implicitWidth) + 2 * horizontalPadding
    implicitHeight: SettingsMetrics.controlHeight
    horizontalPadding: SettingsMetrics.rowPadding
    font.pixelSize: SettingsMetrics.bodySize
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    Accessible.role: Accessible.Button
    Accessible.name: button.text
    Accessible.onPressAction: button.clicked()

    background: Rectangle {
        radius: SettingsMetrics.controlRadius
        color: button.down ? button.colors.pressedControl : button.colors.control
        border.color: button.colors.controlOutline

        SettingsFocusRing {
            colors: button.colors
            radius: parent.radius + SettingsMetrics.focusRingGap + SettingsMetrics.focusRingWidth
            visible: button.visualFocus
        }
    }
    contentItem: SettingsText {
        colors: button.colors
        text: button.text
        font: button.font
        wrapMode: Text.NoWrap
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter

        Accessible.ignored: true
    }
}
