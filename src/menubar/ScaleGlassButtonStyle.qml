import QtQuick
import Zelmo.MenuBar

// How every button of the panel answers to being pressed: it gives way a little and fades, and comes back.
Item {
    id: style

    property bool isPressed: false

    scale: style.isPressed ? MenuBarMetrics.pressedScale : 1
    opacity: style.isPressed ? MenuBarMetrics.pressedOpacity : 1

    Behavior on scale {
        NumberAnimation {
            duration: MenuBarMetrics.pressDuration
            easing.type: Easing.BezierSpline
            easing.bezierCurve: MenuBarMetrics.pressCurve
        }
    }
    Behavior on opacity {
        NumberAnimation {
            duration: MenuBarMetrics.pressDuration
            easing.type: Easing.BezierSpline
            easing.bezierCurve: MenuBarMetrics.pressCurve
        }
    }
}
