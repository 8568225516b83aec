import QtQuick
import Zelmo.Ui

ListView {
    id: bar

    required property CategoryBarModel categories
    required property WallStyle style
    required property HelpTip tip

    height: contentItem.childrenRect.height
    orientation: ListView.Horizontal
    spacing: HeaderMetrics.chipsSpacing
    model: bar.categories
    // All of them, for screen readers.
    cacheBuffer: 10000
    clip: contentWidth > width
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    activeFocusOnTab: true
    keyNavigationEnabled: true
    onActiveFocusChanged: currentIndex = bar.categories.selectedRow

    Accessible.role: Accessible.List
    Accessible.name: "Categories"

    delegate: CategoryChip {
        style: bar.style
        tip: bar.tip
        onPressed: bar.categories.choose(index)
    }

    // A wheel that only turns one way moves the bar as well, towards its end as it turns down.
    WheelHandler {
        target: null
        orientation: Qt.Vertical
        onWheel: event => {
            const step = event.angleDelta.y * HeaderMetrics.wheelStep;
            const next = bar.contentX + (bar.LayoutMirroring.enabled ? step : -step);
            const last = bar.originX + Math.max(0, bar.contentWidth - bar.width);
            bar.contentX = Math.max(bar.originX, Math.min(next, last));
        }
    }
}
