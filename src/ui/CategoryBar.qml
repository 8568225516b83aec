import QtQuick
import Zelmo.Ui

ListView {
    id: bar

    required property CategoryBarModel categories
    required property WallStyle style
    required property HelpTip tip

    height: contentItem.childrenRect.height
    orientation: ListView.Horizontal
    layoutDirection: LayoutMirroring.enabled ? Qt.RightToLeft : Qt.LeftToRight
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

    // A wheel that only turns one way moves the bar as well.
    WheelHandler {
        orientation: Qt.Vertical
        property: "contentX"
        onActiveChanged: bar.returnToBounds()
    }
}
