import QtQuick
import Zelmo.Settings

// Around the control that it lies in, while that has the keyboard's focus.
Rectangle {
    required property SettingsPalette colors

    anchors.fill: parent
    anchors.margins: -(SettingsMetrics.focusRingGap + SettingsMetrics.focusRingWidth)
    color: "transparent"
    border.color: colors.accent
    border.width: SettingsMetrics.focusRingWidth
}
