import QtQuick
import Zelmo.Settings
import Zelmo.Ui

// What lies above the form lies on this.
Item {
    id: ground

    required property SettingsPalette colors

    PlateItem {
        anchors.fill: parent
        radius: SettingsMetrics.popupRadius
        colors: [ground.colors.popup]
        strokeColors: [ground.colors.controlOutline]
        shadowOpacity: SettingsMetrics.popupShadowOpacity
        shadowRadius: SettingsMetrics.popupShadowRadius
        shadowOffset: SettingsMetrics.popupShadowOffset
    }
}
