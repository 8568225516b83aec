import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings

// Picks a colour: a field of tones, a strip of hues, and its number.
FocusScope {
    id: editor

    required property SettingsPalette colors
    required property ColorSetting setting

    implicitWidth: SettingsMetrics.colorFieldWidth
    implicitHeight: column.height

    Accessible.role: Accessible.Grouping
    Accessible.name: editor.setting.title

    ColorPickerModel {
        id: picker

        setting: editor.setting
    }

    Column {
        id: column

        width: parent.width
        spacing: SettingsMetrics.rowSpacing

        ColorFieldItem {
            id: field

            width: parent.width
            height: SettingsMetrics.colorFieldHeight
            radius: SettingsMetrics.controlRadius
            hue: picker.hue
            activeFocusOnTab: true
            focus: true

            Keys.onLeftPressed: picker.setTone(picker.saturation - SettingsMetrics.colorStep, picker.brightness)
            Keys.onRightPressed: picker.setTone(picker.saturation + SettingsMetrics.colorStep, picker.brightness)
            Keys.onUpPressed: picker.setTone(picker.saturation, picker.brightness + SettingsMetrics.colorStep)
            Keys.onDownPressed: picker.setTone(picker.saturation, picker.brightness - SettingsMetrics.colorStep)

            Accessible.role: Accessible.ColorChooser
            Accessible.name: "Saturation and brightness"
            Accessible.description: picker.description
            Accessible.focusable: true
            Accessible.focused: field.activeFocus

            ColorMark {
                x: picker.saturation * field.width - width / 2
                y: (1 - picker.brightness) * field.height - height / 2
                colors: editor.colors
                shown: editor.setting.color
            }
            SettingsFocusRing {
                colors: editor.colors
                radius: field.radius + SettingsMetrics.focusRingGap + SettingsMetrics.focusRingWidth
                visible: field.activeFocus
            }
            MouseArea {
                anchors.fill: parent
                preventStealing: true
                onPressed: mouse => picker.setTone(mouse.x / width, 1 - mouse.y / height)
                onPositionChanged: mouse => picker.setTone(mouse.x / width, 1 - mouse.y / height)
            }
        }

        T.Slider {
            id: hue

            readonly property real minimumValue: from
            readonly property real maximumValue: to

            implicitWidth: column.width
            implicitHeight: SettingsMetrics.colorMarkSide
            from: 0
            to: 360
            stepSize: 1
            wheelEnabled: false
            value: 360 * picker.hue
            // Whether the pointer, a key or a screen reader has moved it.
            onValueChanged: picker.hue = hue.value / 360

            Accessible.role: Accessible.Slider
            Accessible.name: "Hue"
            Accessible.onIncreaseAction: hue.increase()
            Accessible.onDecreaseAction: hue.decrease()

            background: ColorFieldItem {
                y: (hue.height - height) / 2
                width: hue.width
                height: SettingsMetrics.hueStripHeight
                radius: height / 2

                SettingsFocusRing {
                    colors: editor.colors
                    radius: height / 2
                    visible: hue.visualFocus
                }
            }
            handle: ColorMark {
                x: hue.visualPosition * (hue.width - width)
                y: (hue.height - height) / 2
                colors: editor.colors
                shown: Qt.hsva(picker.hue, 1, 1, 1)
            }
        }

        T.TextField {
            id: number

            implicitWidth: SettingsMetrics.hexFieldWidth
            implicitHeight: SettingsMetrics.controlHeight
            leftPadding: SettingsMetrics.controlPadding
            rightPadding: SettingsMetrics.controlPadding
            verticalAlignment: TextInput.AlignVCenter
            selectByMouse: true
            color: editor.colors.text
            selectionColor: editor.colors.accent
            selectedTextColor: editor.colors.accentText
            font.pixelSize: SettingsMetrics.bodySize
            text: picker.hex
            onEditingFinished: picker.hex = number.text
            onActiveFocusChanged: if (number.activeFocus) number.selectAll()

            Accessible.role: Accessible.EditableText
            Accessible.name: "Color code"

            background: Rectangle {
                radius: SettingsMetrics.controlRadius
                color: editor.colors.control
                border.color: editor.colors.controlOutline

                SettingsFocusRing {
                    colors: editor.colors
                    radius: parent.radius + SettingsMetrics.focusRingGap + SettingsMetrics.focusRingWidth
                    visible: number.activeFocus
                }
            }
        }
    }
}
