import QtQuick
import Zelmo.Ui

// Around what has the focus of the keyboard. Light with a dark edge, so that it stands out from every background. Made
// when it is seen: of many places at most one has the focus.
Loader {
    id: ring

    property real gap: WallMetrics.ringGap
    // Of what it is around.
    property real cornerRadius

    anchors.fill: parent
    anchors.margins: -(gap + WallMetrics.ringWidth + 1)
    active: parent.activeFocus

    sourceComponent: PlateItem {
        radius: ring.cornerRadius - ring.anchors.margins
        strokeWidth: WallMetrics.ringWidth + 2
        strokeColors: [WallMetrics.ringEdgeColor]

        PlateItem {
            anchors.fill: parent
            anchors.margins: 1
            radius: ring.cornerRadius - ring.anchors.margins
            strokeWidth: WallMetrics.ringWidth
            strokeColors: [WallMetrics.ringColor]
        }
    }
}
