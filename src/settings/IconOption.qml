import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings

// One of the program's icons; the chosen one has a frame.
T.RadioButton {
    id: option

    required property SettingsPalette colors
    required property int style

    implicitWidth: SettingsMetrics.iconOptionWidth
    implicitHeight: contentItem.implicitHeight + 2 * padding
    padding: SettingsMetrics.iconOptionPadding
    font.pixelSize: SettingsMetrics.captionSize

    Accessible.role: Accessible.RadioButton
    Accessible.name: option.text

    background: Rectangle {
        radius: SettingsMetrics.iconOptionRadius
        color: option.checked ? Qt.alpha(option.colors.accent, SettingsMetrics.iconMarkOpacity) : option.down ? option.colors.control : "transparent"
        border.color: option.colors.accent
        border.width: option.checked ? SettingsMetrics.iconMarkWidth : 0

        FocusRing {
            colors: option.colors
            radius: parent.radius + SettingsMetrics.focusRingGap + SettingsMetrics.focusRingWidth
            visible: option.visualFocus
        }
    }
    contentItem: Item {
        implicitHeight: SettingsMetrics.iconSide + SettingsMetrics.headingSpacing + label.implicitHeight

        AppIconCanvasItem {
            x: (parent.width - width) / 2
            y: -margin
            width: SettingsMetrics.iconSide + 2 * margin
            height: width
            margin: SettingsMetrics.iconMargin
            style: option.style
        }
        SettingsText {
            id: label

            anchors.bottom: parent.bottom
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.NoWrap
            colors: option.colors
            text: option.text
            font.pixelSize: SettingsMetrics.captionSize
            font.weight: option.checked ? Font.DemiBold : Font.Normal

            Accessible.ignored: true
        }
    }
}
