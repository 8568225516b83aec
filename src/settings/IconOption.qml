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
    Accessible.onPressAction: option.clicked()
    Accessible.onToggleAction: option.clicked()

    background: Rectangle {
        radius: SettingsMetrics.iconOptionRadius
        color: option.checked ? Qt.alpha(option.colors.accent, SettingsMetrics.iconMarkOpacity) : option.down ? option.colors.control : "transparent"
        border.color: option.colors.accent
        border.width: option.checked ? SettingsMetrics.iconMarkWidth : 0

        SettingsFocusRing {
            colors: option.colors
            radius: parent.radius + SettingsMetrics.focusRingGap + SettingsMetrics.focusRingWidth
            visible: option.visualFocus
        }
    }
    contentItem: Column {
        spacing: SettingsMetrics.headingSpacing

        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: SettingsMetrics.iconSide
            height: width

            AppIconCanvasItem {
                anchors.fill: parent
                anchors.margins: -margin
                margin: SettingsMetrics.iconMargin
                style: option.style
            }
        }
        SettingsText {
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
