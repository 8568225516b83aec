import QtQuick

// A group of rows, as wide as the panel; each row stands in its middle.
Item {
    id: section

    property alias spacing: rows.spacing
    default property alias content: rows.data

    width: parent.width
    height: rows.height

    Column {
        id: rows

        anchors.horizontalCenter: parent.horizontalCenter
    }
}
