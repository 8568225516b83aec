import QtQuick
import QtQuick.Window
import Zelmo.Settings

// A line of a section: the label at the left and its control at the right, below a hairline where another row is above.
Item {
    id: row

    required property SettingsPalette colors
    property alias title: label.text
    default property alias control: place.data

    width: parent.width
    height: Math.max(SettingsMetrics.rowHeight, Math.max(label.height, place.height) + 2 * SettingsMetrics.rowVerticalPadding)

    RowSeparator {
        colors: row.colors
    }

    SettingsText {
        id: label

        anchors {
            left: parent.left
            right: place.left
            leftMargin: SettingsMetrics.rowPadding
            rightMargin: SettingsMetrics.rowSpacing
            verticalCenter: parent.verticalCenter
        }
        colors: row.colors
        opacity: row.enabled ? 1 : SettingsMetrics.disabledOpacity

        // The control beside it says it.
        Accessible.ignored: true
    }

    Item {
        id: place

        anchors {
            right: parent.right
            rightMargin: SettingsMetrics.rowPadding
            verticalCenter: parent.verticalCenter
        }
        width: childrenRect.width
        height: childrenRect.height
    }
}
