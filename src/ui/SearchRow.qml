import QtQuick
import Zelmo.Ui

PlateItem {
    id: row

    required property LauncherStore store
    required property WallStyle style
    required property HelpTip tip
    required property Item below

    readonly property Item field: input

    height: HeaderMetrics.editSide + 2 * HeaderMetrics.searchVerticalPadding
    radius: HeaderMetrics.searchRadius
    colors: [HeaderMetrics.searchFill]

    PlateItem {
        anchors.fill: parent
        radius: HeaderMetrics.searchRadius
        mirrored: row.LayoutMirroring.enabled
        colors: HeaderMetrics.searchWash
        strokeColors: [HeaderMetrics.searchOutline]
    }

    PlateItem {
        id: badge

        anchors {
            left: parent.left
            leftMargin: HeaderMetrics.searchHorizontalPadding
            verticalCenter: parent.verticalCenter
        }
        width: HeaderMetrics.searchBadgeSide
        height: width
        radius: width / 2
        mirrored: row.LayoutMirroring.enabled
        colors: HeaderMetrics.searchBadgeColors

        SymbolItem {
            anchors.centerIn: parent
            name: "magnifyingglass"
            textSize: HeaderMetrics.searchSymbolSize
            weight: Font.Black
        }
    }

    TextInput {
        id: input

        anchors {
            left: badge.right
            right: buttons.left
            leftMargin: HeaderMetrics.searchSpacing
            rightMargin: HeaderMetrics.searchSpacing
            verticalCenter: parent.verticalCenter
        }
        focus: true
        activeFocusOnTab: true
        clip: true
        horizontalAlignment: TextInput.AlignLeft
        selectByMouse: true
        color: row.style.textColor
        opacity: HeaderMetrics.searchTextOpacity
        font: row.style.searchFont
        text: row.store.searchText
        onTextEdited: row.store.searchText = text
        KeyNavigation.down: row.below

        Accessible.role: Accessible.EditableText
        Accessible.name: placeholder.text
    }

    Text {
        id: placeholder

        anchors {
            left: input.left
            right: input.right
            verticalCenter: input.verticalCenter
        }
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        text: "Search apps"
        color: row.style.textColor
        opacity: HeaderMetrics.placeholderOpacity
        font: row.style.searchFont
        visible: input.length === 0 && input.preeditText.length === 0
        Accessible.ignored: true
    }

    Row {
        id: buttons

        anchors {
            right: parent.right
            rightMargin: HeaderMetrics.searchHorizontalPadding
            verticalCenter: parent.verticalCenter
        }
        spacing: HeaderMetrics.searchSpacing

        EditButton {
            id: uninstall

            visible: row.store.isEditingApps
            enabled: row.store.selectionCount > 0
            title: "Uninstall"
            helpText: enabled ? "Move selected apps to Trash" : "Select apps to uninstall"
            tip: row.tip
            symbol: "trash.fill"
            symbolWeight: Font.Bold
            colors: HeaderMetrics.uninstallColors
            onPressed: row.store.hideSelectedAppsFromLauncher()
            KeyNavigation.up: input
            KeyNavigation.down: row.below
        }
        EditButton {
            visible: row.store.isEditingApps
            title: "Done"
            helpText: "Finish selecting"
            tip: row.tip
            symbol: "checkmark"
            colors: HeaderMetrics.selectColors
            onPressed: row.store.finishEditing()
            KeyNavigation.up: input
            KeyNavigation.down: row.below
        }
        EditButton {
            visible: !row.store.isEditingApps
            title: "Select"
            helpText: "Select multiple apps"
            tip: row.tip
            symbol: "checkmark.circle"
            colors: HeaderMetrics.selectColors
            onPressed: row.store.isEditingApps = true
            KeyNavigation.up: input
            KeyNavigation.down: row.below
        }
        EditButton {
            visible: !row.store.isEditingApps
            title: "Settings"
            helpText: "Settings"
            tip: row.tip
            symbol: "gearshape.fill"
            colors: HeaderMetrics.settingsColors
            onPressed: row.store.showSettings()
            KeyNavigation.up: input
            KeyNavigation.down: row.below
        }
    }

    // A button that is out of use hears nothing of the pointer, and is still to say what it is for.
    HelpArea {
        x: buttons.x + uninstall.x
        y: buttons.y + uninstall.y
        width: uninstall.width
        height: uninstall.height
        visible: uninstall.visible && !uninstall.enabled
        text: uninstall.helpText
        tip: row.tip
    }
}
