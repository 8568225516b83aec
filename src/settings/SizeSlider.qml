import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings
import Zelmo.Ui

// Chooses a size, whose number stands after it.
Row {
    id: row

    required property SettingsPalette colors
    required property FontSizeSetting setting

    spacing: SettingsMetrics.rowSpacing

    T.Slider {
        id: slider

        // By these names, screen readers know the range.
        readonly property real minimumValue: from
        readonly property real maximumValue: to

        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: SettingsMetrics.sliderWidth
        implicitHeight: SettingsMetrics.sliderKnobSide
        from: row.setting.smallest
        to: row.setting.largest
        stepSize: 1
        snapMode: T.Slider.SnapAlways
        // The wheel moves the form.
        wheelEnabled: false
        value: row.setting.size
        // Whether the pointer, a key or a screen reader has moved it.
        onValueChanged: row.setting.choose(slider.value)

        Accessible.role: Accessible.Slider
        Accessible.name: row.setting.title
        Accessible.onIncreaseAction: slider.increase()
        Accessible.onDecreaseAction: slider.decrease()

        background: Rectangle {
            y: (slider.height - height) / 2
            width: slider.width
            height: SettingsMetrics.sliderTrackHeight
            radius: height / 2
            color: row.colors.controlOutline

            Rectangle {
                width: slider.visualPosition * (slider.width - SettingsMetrics.sliderKnobSide) + SettingsMetrics.sliderKnobSide / 2
                height: parent.height
                radius: parent.radius
                color: row.colors.accent
            }
        }
        handle: PlateItem {
            x: slider.visualPosition * (slider.width - width)
            y: (slider.height - height) / 2
            width: SettingsMetrics.sliderKnobSide
            height: width
            radius: width / 2
            colors: [row.colors.knob]
            strokeColors: [row.colors.controlOutline]
            shadowOpacity: SettingsMetrics.knobShadowOpacity
            shadowRadius: SettingsMetrics.knobShadowRadius
            shadowOffset: SettingsMetrics.knobShadowOffset

            SettingsFocusRing {
                colors: row.colors
                radius: width / 2
                visible: slider.visualFocus
            }
        }
    }

    SettingsText {
        anchors.verticalCenter: parent.verticalCenter
        width: SettingsMetrics.sliderValueWidth
        horizontalAlignment: Text.AlignRight
        wrapMode: Text.NoWrap
        colors: row.colors
        color: row.colors.secondaryText
        text: row.setting.size

        // The slider's value says it.
        Accessible.ignored: true
    }
}
