import QtQuick
import Zelmo.Ui

Flickable {
    id: area

    required property LauncherStore store
    required property WallModel appModel
    required property WallStyle style
    required property IconCache icons
    required property real contentWidthLimit
    required property bool mirrored
    // What gets the focus when it leaves upwards.
    required property Item above

    readonly property CardGrid grid: cards
    readonly property int filter: area.appModel.filter

    signal focusLost()

    onFilterChanged: {
        cancelFlick();
        contentY = 0;
    }

    contentHeight: WallMetrics.areaTopPadding + (empty.visible ? empty.height : cards.implicitHeight)
                   + WallMetrics.areaBottomPadding
    clip: true

    TapHandler {
        enabled: !area.store.isEditingApps
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: area.store.hideOverlay()
    }

    CardGrid {
        id: cards

        x: (area.width - implicitWidth) / 2
        y: WallMetrics.areaTopPadding
        model: area.appModel
        columns: area.style.layout.columns
        columnWidth: area.style.layout.columnWidth
        columnSpacing: area.style.layout.columnSpacing
        maximumWidth: area.contentWidthLimit - 2 * WallMetrics.areaSidePadding
        cardHeight: area.store.showsMostUsed ? area.style.rankedCardHeight : area.style.cardHeight
        rowSpacing: area.style.layout.rowSpacing
        mirrored: area.mirrored
        visibleTop: area.contentY - y
        visibleHeight: area.height
        changeDuration: area.style.movesCards ? area.store.changeDuration : 0
        card: [gridCard, listCard, minimalCard, tileCard][area.style.variant]
        onScrollRequested: visibleTop => area.contentY = visibleTop
        onFocusLost: area.focusLost()
        KeyNavigation.up: area.above
        KeyNavigation.priority: KeyNavigation.AfterItem

        Accessible.role: Accessible.List
        Accessible.name: "Apps"
    }

    EmptyMostUsed {
        id: empty

        y: WallMetrics.areaTopPadding
        width: area.width
        visible: area.store.showsMostUsed && area.appModel.isEmpty
        style: area.style
    }

    ScrollIndicator {
        parent: area.parent
        area: area
    }

    Component {
        id: gridCard

        GridCard {
            store: area.store
            style: area.style
            icons: area.icons
        }
    }
    Component {
        id: listCard

        ListCard {
            store: area.store
            style: area.style
            icons: area.icons
        }
    }
    Component {
        id: minimalCard

        MinimalCard {
            store: area.store
            style: area.style
            icons: area.icons
        }
    }
    Component {
        id: tileCard

        TileCard {
            store: area.store
            style: area.style
            icons: area.icons
        }
    }
}
