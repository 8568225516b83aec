import QtQuick
import Zelmo.Settings

// The program's icons beside each other. One of them is in the tab order; the arrow keys go to the others.
FocusScope {
    id: picker

    required property SettingsPalette colors
    required property AppIconSettings setting

    width: parent.width
    height: row.height + 2 * SettingsMetrics.rowVerticalPadding

    Keys.onLeftPressed: picker.setting.choose(picker.setting.index - 1)
    Keys.onRightPressed: picker.setting.choose(picker.setting.index + 1)

    Row {
        id: row

        anchors.centerIn: parent
        spacing: (parent.width - 2 * SettingsMetrics.rowPadding - 4 * SettingsMetrics.iconOptionWidth) / 5

        Repeater {
            model: picker.setting.titles

            IconOption {
                required property string modelData
                required property int index

                colors: picker.colors
                style: index
                text: modelData
                checked: index === picker.setting.index
                focusPolicy: checked || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                focus: checked
                onClicked: picker.setting.choose(index)
                onCheckedChanged: if (checked && picker.activeFocus) forceActiveFocus(Qt.TabFocusReason)
            }
        }
    }
}
