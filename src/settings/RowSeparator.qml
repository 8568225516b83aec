import QtQuick
import QtQuick.Window
import Zelmo.Settings

// One pixel between a row and the one above it; none above the first.
Rectangle {
    required property SettingsPalette colors

    x: SettingsMetrics.rowPadding
    width: parent.width - 2 * SettingsMetrics.rowPadding
    height: 1 / Screen.devicePixelRatio
    visible: parent.y > 0
    color: colors.separator
}
