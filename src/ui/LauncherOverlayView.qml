import QtQuick
import Zelmo.Ui

Item {
    id: wall

    required property LauncherStore store
    required property WallModel appModel
    required property WallStyle style
    required property IconCache icons

    BackgroundItem {
        anchors.fill: parent
        colors: wall.style.backgroundColors

        TapHandler {
            enabled: !wall.store.isEditingApps
            gesturePolicy: TapHandler.ReleaseWithinBounds
            onTapped: wall.store.hideOverlay()
        }
    }

    Item {
        id: content

        width: Math.min(wall.width, WallMetrics.contentMaximumWidth) - 2 * WallMetrics.contentHorizontalPadding
        anchors {
            top: parent.top
            bottom: parent.bottom
            horizontalCenter: parent.horizontalCenter
            topMargin: WallMetrics.contentVerticalPadding
        }

        PlateItem {
            id: panel

            width: parent.width
            height: panelContent.height + 2 * WallMetrics.panelVerticalPadding
            radius: WallMetrics.panelRadius
            colors: [Qt.alpha("white", WallMetrics.panelTopOpacity), Qt.alpha("white", WallMetrics.panelBottomOpacity)]
            direction: PlateItem.Down
            strokeColors: [Qt.alpha("white", WallMetrics.panelOutlineOpacity)]

            Column {
                id: panelContent

                x: WallMetrics.panelHorizontalPadding
                y: WallMetrics.panelVerticalPadding
                width: parent.width - 2 * WallMetrics.panelHorizontalPadding
                spacing: WallMetrics.panelSpacing

                Column {
                    spacing: WallMetrics.titleSpacing

                    Text {
                        text: "Zelmo"
                        color: wall.style.textColor
                        opacity: WallMetrics.titleOpacity
                        font: wall.style.titleFont
                    }
                    Text {
                        text: wall.store.isEditingApps ? "Select apps to hide from the launcher" : "Colorful launchpad for your Mac"
                        color: wall.style.textColor
                        opacity: WallMetrics.subtitleOpacity
                        font: wall.style.subtitleFont
                    }
                }

                SearchRow {
                    width: parent.width
                    store: wall.store
                    style: wall.style
                }
            }
        }

        Flickable {
            id: area

            // As wide as the wall, so that a narrow wall cuts cards off at its edges only.
            x: -content.x
            width: wall.width
            anchors {
                top: panel.bottom
                bottom: parent.bottom
                topMargin: WallMetrics.contentSpacing
            }
            contentHeight: grid.y + grid.implicitHeight + WallMetrics.areaBottomPadding
            clip: true

            CardGrid {
                id: grid

                x: (area.width - implicitWidth) / 2
                y: WallMetrics.areaTopPadding
                model: wall.appModel
                columns: WallMetrics.gridColumns
                columnWidth: WallMetrics.columnWidth
                columnSpacing: WallMetrics.columnSpacing
                cardHeight: Math.max(WallMetrics.cardMinimumHeight, WallMetrics.cardPlainHeight + WallMetrics.nameLines * Math.ceil(nameMetrics.height) + Math.ceil(categoryMetrics.height))
                rowSpacing: WallMetrics.rowSpacing
                visibleTop: area.contentY - y
                visibleHeight: area.height
                changeDuration: wall.store.changeDuration

                card: AppTileCard {
                    height: grid.cardHeight
                    style: wall.style
                    icons: wall.icons
                    isEditing: wall.store.isEditingApps
                    onLaunched: wall.store.launch(app)
                    onSelectionToggled: wall.store.toggleSelection(app)
                }
            }

            TapHandler {
                enabled: !wall.store.isEditingApps
                gesturePolicy: TapHandler.ReleaseWithinBounds
                onTapped: wall.store.hideOverlay()
            }
        }

        Rectangle {
            anchors.right: parent.right
            y: area.y + area.visibleArea.yPosition * area.height
            width: WallMetrics.indicatorWidth
            height: Math.max(WallMetrics.indicatorMinimumHeight, area.visibleArea.heightRatio * area.height)
            radius: width / 2
            color: Qt.alpha("white", WallMetrics.indicatorOpacity)
            visible: area.visibleArea.heightRatio < 1
        }
    }

    FontMetrics {
        id: nameMetrics

        font: wall.style.appNameFont
    }
    FontMetrics {
        id: categoryMetrics

        font: wall.style.appCategoryFont
    }
}
