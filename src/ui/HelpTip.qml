import QtQuick
import Zelmo.Ui

// The one help text of the wall, placed and shown by what it belongs to.
PlateItem {
    id: tip

    property alias text: label.text

    width: label.implicitWidth + 2 * WallMetrics.tipHorizontalPadding
    height: label.implicitHeight + 2 * WallMetrics.tipVerticalPadding
    radius: WallMetrics.tipRadius
    colors: [WallMetrics.tipFill]
    strokeColors: [WallMetrics.tipOutline]
    visible: false
    Accessible.ignored: true

    Text {
        id: label

        anchors.centerIn: parent
        textFormat: Text.PlainText
        color: WallMetrics.tipText
        font.pixelSize: WallMetrics.tipFontSize
    }
}
