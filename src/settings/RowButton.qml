import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings

// A whole row that acts: a symbol in a coloured circle, if any, the title with a line below it, if any, and a mark.
T.Button {
    id: button

    required property SettingsPalette colors
    property string caption: ""
    property string symbol
    property real symbolSize: 0
    property int symbolWeight: Font.DemiBold
    property list<color> badgeColors
    property bool isMarked: false
    // Each press takes the next of several.
    property bool isCycling: false

    width: parent.width
    implicitHeight: Math.max(SettingsMetrics.rowHeight, contentItem.implicitHeight + 2 * SettingsMetrics.rowVerticalPadding)
    horizontalPadding: SettingsMetrics.rowPadding
    font.pixelSize: SettingsMetrics.bodySize
    font.weight: Font.DemiBold
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    Accessible.role: Accessible.Button
    Accessible.name: button.text
    Accessible.onPressAction: button.clicked()
    Accessible.description: button.isMarked ? "In use" : button.caption

    background: Rectangle {
        radius: SettingsMetrics.groupRadius
        color: button.down ? button.colors.control : "transparent"

        SettingsFocusRing {
            colors: button.colors
            anchors.margins: SettingsMetrics.focusRingGap
            radius: parent.radius - SettingsMetrics.focusRingGap
            visible: button.visualFocus
        }
    }
    contentItem: RowButtonContent {
        colors: button.colors
        title: button.text
        titleFont: button.font
        caption: button.caption
        symbol: button.symbol
        symbolSize: button.symbolSize
        symbolWeight: button.symbolWeight
        badgeColors: button.badgeColors
        isMarked: button.isMarked
        isCycling: button.isCycling
    }

    RowSeparator {
        colors: button.colors
    }
}
