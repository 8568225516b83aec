import QtQuick
import Zelmo.Ui

WallItem {
    id: wall

    required property LauncherStore store
    required property WallModel appModel
    required property CategoryBarModel categories
    required property WallStyle style
    required property IconCache icons
    required property DesktopBackdrop backdrop

    readonly property bool isShown: wall.store.overlayIsVisible
    onIsShownChanged: {
        wall.focusSearchField();
        area.grid.forgetCurrent();
    }

    LayoutMirroring.enabled: wall.isRightToLeft
    LayoutMirroring.childrenInherit: true

    searchField: header.searchField
    onPagesRequested: pages => area.grid.scrollByPages(pages)

    // The toolkit knows no such key on every desktop.
    Shortcut {
        sequences: [StandardKey.Preferences, "Ctrl+,"]
        onActivated: wall.store.showSettings()
    }

    Accessible.role: Accessible.Pane
    Accessible.name: "Zelmo"

    BackgroundItem {
        id: background

        anchors.fill: parent
        colors: wall.style.backgroundColors
        backdrop: wall.style.blursDesktop ? wall.backdrop : null
        mirrored: wall.LayoutMirroring.enabled

        TapHandler {
            enabled: !wall.store.isEditingApps
            gesturePolicy: TapHandler.ReleaseWithinBounds
            onTapped: wall.store.hideOverlay()
        }
    }

    Item {
        id: content

        width: Math.min(wall.width - 2 * WallMetrics.contentHorizontalPadding, WallMetrics.contentMaximumWidth)
        anchors {
            top: parent.top
            bottom: parent.bottom
            horizontalCenter: parent.horizontalCenter
            topMargin: WallMetrics.contentVerticalPadding
            bottomMargin: WallMetrics.contentVerticalPadding
        }

        HeaderPanel {
            id: header

            width: parent.width
            store: wall.store
            style: wall.style
            categories: wall.categories
            background: background
            tip: tip
            below: area.grid
        }

        AppArea {
            id: area

            // As wide as the wall, so that a narrow wall cuts cards off at its edges only.
            x: -content.x
            width: wall.width
            anchors {
                top: header.bottom
                bottom: parent.bottom
                topMargin: WallMetrics.contentSpacing
            }
            store: wall.store
            appModel: wall.appModel
            style: wall.style
            icons: wall.icons
            contentWidthLimit: content.width
            mirrored: wall.LayoutMirroring.enabled
            above: header.lastFocus
            onFocusLost: wall.focusSearchField()
        }
    }

    HelpTip {
        id: tip
    }
}
