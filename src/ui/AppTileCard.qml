import QtQuick
import Zelmo.Ui

// What the cards of all layouts have in common: plate, selection, click. Their size is set by the grid. Where a click
// counts, also between what is drawn, is a plate's shape that itself is not drawn.
PlateItem {
    id: card

    required property LauncherStore store
    required property WallStyle style
    required property IconCache icons
    required property var app
    required property string name
    required property var appIcon
    required property string categoryLabel
    required property string symbol
    required property color accentColor
    required property var tileColors
    required property string usageSummary
    required property bool selected
    readonly property bool isEditing: card.store.isEditingApps
    property bool isComplete

    signal pressed()
    onPressed: card.isEditing ? card.store.toggleSelection(card.app) : card.store.launch(card.app)

    Component.onCompleted: card.isComplete = true

    radius: card.style.layout.selectedRadius
    // So that the ring is not below the cards around it.
    z: card.activeFocus ? 1 : 0
    scale: card.selected ? CardMetrics.selectedScale : 1

    Keys.onReturnPressed: card.pressed()
    Keys.onEnterPressed: card.pressed()
    Keys.onSpacePressed: card.pressed()

    Accessible.role: Accessible.Button
    Accessible.name: card.name
    Accessible.description: card.usageSummary
    Accessible.focusable: true
    Accessible.selectable: card.isEditing
    Accessible.selected: card.selected
    Accessible.onPressAction: card.pressed()

    Behavior on scale {
        NumberAnimation {
            duration: card.style.selectionDuration
            easing.type: Easing.OutQuad
        }
    }

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: card.pressed()
    }

    PlateItem {
        anchors.fill: parent
        z: -1
        radius: card.selected ? card.style.layout.selectedRadius : card.style.layout.plateRadius
        mirrored: card.LayoutMirroring.enabled
        colors: card.selected ? CardMetrics.selectedColors : [card.style.plateFill]
        strokeColors: [card.selected ? CardMetrics.selectedOutline : card.style.plateOutline]
        strokeWidth: card.selected ? CardMetrics.outlineWidth : card.style.plateOutlineWidth
    }

    // There only while there is a badge to see.
    Loader {
        id: badge

        x: card.LayoutMirroring.enabled ? parent.width - width - card.style.layout.badgeLeft : card.style.layout.badgeLeft
        y: card.style.layout.badgeTop
        z: 1
        active: card.isEditing

        sourceComponent: SelectionBadge {
            isSelected: card.selected
            isShown: card.isEditing
            grows: card.isComplete
            duration: card.style.selectionDuration
            onGone: badge.active = Qt.binding(() => card.isEditing)
        }
        // It leaves when it has faded.
        onLoaded: badge.active = true
    }

    FocusRing {
        z: 1
        cornerRadius: card.style.layout.selectedRadius
    }
}
