import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings

// Holds the picker of a colour above the form.
T.Popup {
    id: editor

    required property SettingsPalette colors
    required property ColorSetting setting

    implicitWidth: contentItem.implicitWidth + 2 * padding
    implicitHeight: contentItem.implicitHeight + 2 * padding
    padding: SettingsMetrics.rowSpacing
    margins: SettingsMetrics.popupMargin
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    onOpened: contentItem.forceActiveFocus(Qt.TabFocusReason)

    background: PopupGround {
        colors: editor.colors
    }
    contentItem: ColorEditorContent {
        colors: editor.colors
        setting: editor.setting
    }
}
