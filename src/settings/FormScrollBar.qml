import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings

T.ScrollBar {
    id: bar

    required property SettingsPalette colors

    implicitWidth: SettingsMetrics.scrollBarWidth + 2 * SettingsMetrics.scrollBarMargin
    padding: SettingsMetrics.scrollBarMargin
    minimumSize: 0.1
    visible: bar.size < 1

    // A screen reader goes from control to control.
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: SettingsMetrics.scrollBarWidth
        radius: width / 2
        color: bar.colors.text
        opacity: bar.hovered || bar.pressed ? SettingsMetrics.scrollBarOpacity : SettingsMetrics.scrollBarRestOpacity
    }
}
