import QtQuick
import Zelmo.Ui

PlateItem {
    id: row

    required property LauncherStore store
    required property WallStyle style

    height: WallMetrics.searchHeight + 2 * WallMetrics.searchVerticalPadding
    radius: WallMetrics.searchRadius
    colors: [Qt.alpha("white", WallMetrics.searchFillOpacity)]
    strokeColors: [Qt.alpha("white", WallMetrics.searchOutlineOpacity)]

    TextInput {
        id: field

        anchors {
            left: parent.left
            right: buttons.left
            leftMargin: WallMetrics.searchHorizontalPadding
            rightMargin: WallMetrics.searchSpacing
            verticalCenter: parent.verticalCenter
        }
        focus: true
        clip: true
        selectByMouse: true
        color: row.style.textColor
        opacity: WallMetrics.searchTextOpacity
        font: row.style.searchFont
        text: row.store.searchText
        onTextEdited: row.store.searchText = text

        Accessible.role: Accessible.EditableText
        Accessible.name: placeholder.text
    }

    Text {
        id: placeholder

        anchors {
            left: field.left
            verticalCenter: field.verticalCenter
        }
        text: "Search apps"
        color: row.style.textColor
        opacity: WallMetrics.placeholderOpacity
        font: field.font
        visible: field.length === 0 && field.preeditText.length === 0
    }

    Row {
        id: buttons

        anchors {
            right: parent.right
            rightMargin: WallMetrics.searchHorizontalPadding
            verticalCenter: parent.verticalCenter
        }
        spacing: WallMetrics.searchSpacing

        EditButton {
            visible: row.store.isEditingApps
            enabled: row.store.selectionCount > 0
            title: "Uninstall"
            helpText: enabled ? "Move selected apps to Trash" : "Select apps to uninstall"
            symbol: "trash.fill"
            startColor: WallMetrics.uninstallColor
            onPressed: row.store.hideSelectedAppsFromLauncher()
        }
        EditButton {
            visible: row.store.isEditingApps
            title: "Done"
            helpText: "Finish selecting"
            symbol: "checkmark"
            startColor: WallMetrics.selectStartColor
            endColor: WallMetrics.selectEndColor
            onPressed: row.store.finishEditing()
        }
        EditButton {
            visible: !row.store.isEditingApps
            title: "Select"
            helpText: "Select multiple apps"
            symbol: "checkmark.circle"
            startColor: WallMetrics.selectStartColor
            endColor: WallMetrics.selectEndColor
            onPressed: row.store.isEditingApps = true
        }
    }
}
