import QtQuick
import Zelmo.Settings
import Zelmo.Ui

// Where in a field the colour is.
Item {
    id: mark

    required property SettingsPalette colors
    property color shown

    width: SettingsMetrics.colorMarkSide
    height: width

    PlateItem {
        anchors.fill: parent
        radius: width / 2
        colors: [mark.shown]
        strokeColors: [mark.colors.knob]
        strokeWidth: SettingsMetrics.colorMarkWidth
        shadowOpacity: SettingsMetrics.knobShadowOpacity
        shadowRadius: SettingsMetrics.knobShadowRadius
        shadowOffset: SettingsMetrics.knobShadowOffset
    }
}
