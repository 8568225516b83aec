import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings

// Chooses one of a few titles that stand beside each other. One of them is in the tab order; the arrow keys go to the
// others.
FocusScope {
    id: picker

    required property SettingsPalette colors
    required property PickerSetting setting

    implicitWidth: row.width + 2 * SettingsMetrics.segmentInset
    implicitHeight: SettingsMetrics.controlHeight + 2 * SettingsMetrics.segmentInset

    Keys.onLeftPressed: picker.setting.index = picker.setting.index - 1
    Keys.onRightPressed: picker.setting.index = picker.setting.index + 1

    Accessible.role: Accessible.Grouping
    Accessible.name: picker.setting.title

    Rectangle {
        anchors.fill: parent
        radius: SettingsMetrics.controlRadius + SettingsMetrics.segmentInset
        color: picker.colors.control
        border.color: picker.colors.controlOutline
    }
    Row {
        id: row

        anchors.centerIn: parent

        Repeater {
            model: picker.setting.rows

            T.RadioButton {
                id: segment

                required property string modelData
                required property int index

                implicitWidth: SettingsMetrics.segmentWidth
                implicitHeight: SettingsMetrics.controlHeight
                text: modelData
                font.pixelSize: SettingsMetrics.bodySize
                checked: index === picker.setting.index
                focusPolicy: checked || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                focus: checked
                onClicked: picker.setting.index = index
                onCheckedChanged: if (checked && picker.activeFocus) forceActiveFocus(Qt.TabFocusReason)

                Accessible.role: Accessible.RadioButton
                Accessible.name: segment.text
                Accessible.onPressAction: segment.clicked()
                Accessible.onToggleAction: segment.clicked()

                background: Rectangle {
                    radius: SettingsMetrics.controlRadius
                    color: segment.checked ? picker.colors.accent : segment.down ? picker.colors.pressedControl : "transparent"

                    SettingsFocusRing {
                        colors: picker.colors
                        radius: parent.radius + SettingsMetrics.focusRingGap + SettingsMetrics.focusRingWidth
                        visible: segment.visualFocus
                    }
                }
                contentItem: SettingsText {
                    colors: picker.colors
                    color: segment.checked ? picker.colors.accentText : picker.colors.text
                    text: segment.text
                    font: segment.font
                    wrapMode: Text.NoWrap
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter

                    Accessible.ignored: true
                }
            }
        }
    }
}
