import QtQuick
import Zelmo.Ui

// Around what has the focus of the keyboard. Light with a dark edge, so that it stands out from every background.
PlateItem {
    id: ring

    property real gap: WallMetrics.ringGap
    // Of what it is around.
    property real cornerRadius

    anchors.fill: parent
    anchors.margins: -(gap + WallMetrics.ringWidth + 1)
    visible: parent.activeFocus
    radius: cornerRadius - anchors.margins
    strokeWidth: WallMetrics.ringWidth + 2
    strokeColors: [WallMetrics.ringEdgeColor]

    PlateItem {
        anchors.fill: parent
        anchors.margins: 1
        radius: ring.radius
        strokeWidth: WallMetrics.ringWidth
        strokeColors: [WallMetrics.ringColor]
    }
}
