import QtQuick
import Zelmo.Ui

MaterialItem {
    id: header

    required property LauncherStore store
    required property WallStyle style
    required property CategoryBarModel categories
    required property HelpTip tip
    // What gets the focus when it leaves downwards.
    required property Item below

    readonly property Item searchField: search.field
    readonly property Item lastFocus: bar

    height: content.height + 2 * HeaderMetrics.panelVerticalPadding
    radius: HeaderMetrics.panelRadius
    shadowOpacity: HeaderMetrics.panelShadowOpacity
    shadowRadius: HeaderMetrics.panelShadowRadius
    shadowOffset: HeaderMetrics.panelShadowOffset

    PlateItem {
        anchors.fill: parent
        radius: HeaderMetrics.panelRadius
        colors: HeaderMetrics.panelColors
        direction: PlateItem.Down
        strokeColors: [HeaderMetrics.panelOutline]

        // The panel is not empty space: a click on it does nothing.
        TapHandler {
            gesturePolicy: TapHandler.ReleaseWithinBounds
        }
    }

    Column {
        id: content

        x: HeaderMetrics.panelHorizontalPadding
        y: HeaderMetrics.panelVerticalPadding
        width: parent.width - 2 * HeaderMetrics.panelHorizontalPadding
        spacing: HeaderMetrics.panelSpacing

        Column {
            width: parent.width
            spacing: HeaderMetrics.titleRowsSpacing

            TitleRow {
                width: parent.width
                store: header.store
                style: header.style
                below: search.field
            }

            SearchRow {
                id: search

                width: parent.width
                store: header.store
                style: header.style
                tip: header.tip
                below: bar
            }
        }

        CategoryBar {
            id: bar

            width: parent.width
            categories: header.categories
            style: header.style
            tip: header.tip
            KeyNavigation.up: search.field
            KeyNavigation.down: header.below
        }
    }
}
