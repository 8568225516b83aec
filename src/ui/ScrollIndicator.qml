import QtQuick
import Zelmo.Ui

// Says which part of an area is in sight.
Rectangle {
    required property Flickable area

    anchors {
        right: area.right
        rightMargin: WallMetrics.indicatorInset
    }
    y: area.y + area.visibleArea.yPosition * area.height
    width: WallMetrics.indicatorWidth
    height: Math.max(WallMetrics.indicatorMinimumHeight, area.visibleArea.heightRatio * area.height)
    radius: width / 2
    color: Qt.alpha("white", WallMetrics.indicatorOpacity)
    visible: area.visibleArea.heightRatio < 1
}
