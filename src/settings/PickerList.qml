import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings

// The rows of a list picker, beside their scroll bar.
Item {
    id: area

    required property SettingsPalette colors
    property alias model: list.model
    property alias currentIndex: list.currentIndex

    implicitHeight: list.contentHeight

    ListView {
        id: list

        width: parent.width - (bar.visible ? bar.width : 0)
        height: parent.height
        clip: true
        highlightMoveDuration: 0
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: FormScrollBar {
            id: bar

            parent: area
            x: area.width - width
            height: area.height
            colors: area.colors
        }
    }
}
