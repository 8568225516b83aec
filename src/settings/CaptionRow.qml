import QtQuick
import Zelmo.Settings

// A line of a section that only says something.
Item {
    id: row

    required property SettingsPalette colors
    property alias text: caption.text
    property alias textColor: caption.color
    property alias font: caption.font

    width: parent.width
    height: Math.max(SettingsMetrics.rowHeight, caption.height + 2 * SettingsMetrics.rowVerticalPadding)

    RowSeparator {
        colors: row.colors
    }
    CaptionText {
        id: caption

        anchors.verticalCenter: parent.verticalCenter
        x: SettingsMetrics.rowPadding
        width: parent.width - 2 * x
        colors: row.colors

        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
