import QtQuick
import Zelmo.MenuBar
import Zelmo.Ui

// Around the control that gets the keys.
Item {
    id: ring

    property real cornerRadius: 0

    PlateItem {
        anchors.fill: parent
        anchors.margins: -MenuBarMetrics.focusRingGap - MenuBarMetrics.focusRingWidth
        radius: ring.cornerRadius - anchors.margins
        strokeColors: [MenuBarMetrics.focusRingColor]
        strokeWidth: MenuBarMetrics.focusRingWidth
    }
}
