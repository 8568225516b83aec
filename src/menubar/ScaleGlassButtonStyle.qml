import QtQuick
import Zelmo.MenuBar

// How every button of the panel answers to being pressed: it gives way a little and fades, and comes back.
Item {
    id: style

    property bool isPressed: false
    // Else it does so at once.
    property bool animates: true

    scale: style.isPressed ? MenuBarMetrics.pressedScale : 1
    opacity: style.isPressed ? MenuBarMetrics.pressedOpacity : 1

    Behavior on scale {
        enabled: style.animates

        NumberAnimation {
            duration: MenuBarMetrics.pressDuration
            easing.type: Easing.BezierSpline
            easing.bezierCurve: MenuBarMetrics.pressCurve
        }
    }
    Behavior on opacity {
        enabled: style.animates

        NumberAnimation {
            duration: MenuBarMetrics.pressDuration
            easing.type: Easing.BezierSpline
            easing.bezierCurve: MenuBarMetrics.pressCurve
        }
    }
}
