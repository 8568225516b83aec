import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings
import Zelmo.Ui

// A whole row that acts: a symbol in a coloured circle, if any, the title with a line below it, if any, and a mark.
T.Button {
    id: button

    required property SettingsPalette colors
    property string caption: ""
    property string symbol: ""
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
    Accessible.description: button.caption

    background: Rectangle {
        radius: SettingsMetrics.groupRadius
        color: button.down ? button.colors.control : "transparent"

        FocusRing {
            colors: button.colors
            anchors.margins: SettingsMetrics.focusRingGap
            radius: parent.radius - SettingsMetrics.focusRingGap
            visible: button.visualFocus
        }
    }
    contentItem: Item {
        implicitHeight: Math.max(badge.visible ? badge.height : 0, lines.height)

        PlateItem {
            id: badge

            anchors.verticalCenter: parent.verticalCenter
            width: SettingsMetrics.badgeSide
            height: width
            radius: width / 2
            colors: button.badgeColors
            visible: button.symbol !== ""

            SymbolItem {
                anchors.centerIn: parent
                width: button.symbolSize * SettingsMetrics.symbolSideRatio
                height: width
                name: button.symbol
                weight: button.symbolWeight
                color: button.colors.knob
            }
        }
        Column {
            id: lines

            anchors {
                left: badge.visible ? badge.right : parent.left
                leftMargin: badge.visible ? SettingsMetrics.rowSpacing : 0
                right: parent.right
                rightMargin: 2 * SettingsMetrics.rowSpacing
                verticalCenter: parent.verticalCenter
            }
            spacing: SettingsMetrics.lineSpacing

            SettingsText {
                width: parent.width
                colors: button.colors
                text: button.text
                font: button.font

                Accessible.ignored: true
            }
            CaptionText {
                width: parent.width
                colors: button.colors
                text: button.caption
                visible: text !== ""

                Accessible.ignored: true
            }
        }
        SymbolItem {
            anchors {
                right: parent.right
                verticalCenter: parent.verticalCenter
            }
            width: SettingsMetrics.checkSymbolSize * SettingsMetrics.symbolSideRatio
            height: width
            name: "checkmark.circle.fill"
            color: button.colors.green
            visible: button.isMarked
        }
        ChevronItem {
            anchors {
                right: parent.right
                rightMargin: SettingsMetrics.controlPadding
                verticalCenter: parent.verticalCenter
            }
            width: SettingsMetrics.chevronWidth
            height: SettingsMetrics.chevronHeight
            color: button.colors.secondaryText
            visible: button.isCycling
        }
    }

    RowSeparator {
        colors: button.colors
    }
}
