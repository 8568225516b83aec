import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings
import Zelmo.Ui

T.Switch {
    id: toggle

    required property SettingsPalette colors
    required property string title
    required property bool animates

    implicitWidth: SettingsMetrics.switchWidth
    implicitHeight: SettingsMetrics.switchHeight

    Accessible.role: Accessible.CheckBox
    Accessible.name: toggle.title
    Accessible.onPressAction: {
        toggle.toggle();
        toggle.toggled();
    }
    Accessible.onToggleAction: toggle.Accessible.pressAction()

    indicator: Rectangle {
        implicitWidth: SettingsMetrics.switchWidth
        implicitHeight: SettingsMetrics.switchHeight
        radius: height / 2
        color: toggle.checked ? toggle.colors.accent : toggle.colors.track

        PlateItem {
            x: SettingsMetrics.switchInset + toggle.visualPosition * (parent.width - width - 2 * SettingsMetrics.switchInset)
            y: SettingsMetrics.switchInset
            width: parent.height - 2 * SettingsMetrics.switchInset
            height: width
            radius: width / 2
            colors: [toggle.colors.knob]
            shadowOpacity: SettingsMetrics.knobShadowOpacity
            shadowRadius: SettingsMetrics.knobShadowRadius
            shadowOffset: SettingsMetrics.knobShadowOffset

            Behavior on x {
                enabled: toggle.animates && !toggle.pressed

                NumberAnimation {
                    duration: SettingsMetrics.switchDuration
                    easing.type: Easing.InOutQuad
                }
            }
        }
        SettingsFocusRing {
            colors: toggle.colors
            radius: height / 2
            visible: toggle.visualFocus
        }
    }
}
