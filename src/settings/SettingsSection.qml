import QtQuick
import Zelmo.Settings

// A titled box of rows.
Column {
    id: section

    required property SettingsPalette colors
    required property string title
    default property alias rows: rows.data

    width: parent.width
    spacing: SettingsMetrics.headingSpacing

    SettingsText {
        x: SettingsMetrics.rowPadding
        width: parent.width - 2 * x
        colors: section.colors
        text: section.title
        font.weight: Font.DemiBold

        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Rectangle {
        width: parent.width
        height: rows.height
        radius: SettingsMetrics.groupRadius
        color: section.colors.group
        border.color: section.colors.outline

        Column {
            id: rows

            width: parent.width
        }
    }
}
