import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings

// Shows a colour and opens the picker for it.
T.Button {
    id: well

    required property SettingsPalette colors
    required property ColorSetting setting
    readonly property bool tellsWhetherEnabled: true

    implicitWidth: SettingsMetrics.wellWidth
    implicitHeight: SettingsMetrics.wellHeight
    focusPolicy: well.enabled ? Qt.StrongFocus : Qt.NoFocus
    Keys.onReturnPressed: well.clicked()
    Keys.onEnterPressed: well.clicked()
    onClicked: editor.visible ? editor.close() : editor.open()
    onEnabledChanged: editor.close()

    Accessible.role: Accessible.Button
    Accessible.name: well.setting.title
    Accessible.description: well.setting.hex
    Accessible.focusable: well.enabled
    Accessible.onPressAction: if (well.enabled) well.clicked()

    background: Rectangle {
        radius: SettingsMetrics.controlRadius
        color: well.down ? well.colors.pressedControl : well.colors.control
        border.color: well.colors.controlOutline

        SettingsFocusRing {
            colors: well.colors
            radius: parent.radius + SettingsMetrics.focusRingGap + SettingsMetrics.focusRingWidth
            visible: well.visualFocus
        }
    }
    contentItem: Item {
        Rectangle {
            anchors.fill: parent
            anchors.margins: SettingsMetrics.wellInset
            radius: SettingsMetrics.controlRadius - SettingsMetrics.wellInset
            color: well.setting.color
            border.color: well.colors.controlOutline
        }
    }

    ColorEditor {
        id: editor

        x: well.width - width
        y: well.height + SettingsMetrics.popupGap
        colors: well.colors
        setting: well.setting
        onClosed: well.forceActiveFocus(Qt.PopupFocusReason)
    }
}
