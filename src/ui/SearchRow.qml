import QtQuick
import Zelmo.Ui

Rectangle {
    id: row

    required property LauncherStore store
    required property WallStyle style

    height: WallMetrics.searchHeight + 2 * WallMetrics.searchVerticalPadding
    radius: WallMetrics.searchRadius
    color: Qt.alpha("white", WallMetrics.searchFillOpacity)
    border.color: Qt.alpha("white", WallMetrics.searchOutlineOpacity)

    TextInput {
        id: field

        anchors {
            left: parent.left
            right: parent.right
            leftMargin: WallMetrics.searchHorizontalPadding
            rightMargin: WallMetrics.searchHorizontalPadding
            verticalCenter: parent.verticalCenter
        }
        focus: true
        clip: true
        selectByMouse: true
        color: row.style.textColor
        opacity: WallMetrics.searchTextOpacity
        font.pixelSize: row.style.searchFontSize
        font.weight: Font.Medium
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
}
