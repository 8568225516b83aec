import QtQuick
import Zelmo.Settings
import Zelmo.Ui

// What a row that acts shows.
Item {
    id: content

    required property SettingsPalette colors
    required property string title
    required property font titleFont
    required property string caption
    required property string symbol
    required property real symbolSize
    required property int symbolWeight
    required property list<color> badgeColors
    required property bool isMarked
    required property bool isCycling

    implicitHeight: Math.max(badge.visible ? badge.height : 0, lines.height)

    PlateItem {
        id: badge

        anchors.verticalCenter: parent.verticalCenter
        width: SettingsMetrics.badgeSide
        height: width
        radius: width / 2
        colors: content.badgeColors
        visible: content.symbol !== ""

        SymbolItem {
            anchors.centerIn: parent
            width: content.symbolSize * SettingsMetrics.symbolSideRatio
            height: width
            name: content.symbol
            weight: content.symbolWeight
            color: content.colors.knob
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
            colors: content.colors
            text: content.title
            font: content.titleFont

            Accessible.ignored: true
        }
        CaptionText {
            width: parent.width
            colors: content.colors
            text: content.caption
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
        color: content.colors.green
        visible: content.isMarked
    }
    ChevronItem {
        anchors {
            right: parent.right
            rightMargin: SettingsMetrics.controlPadding
            verticalCenter: parent.verticalCenter
        }
        width: SettingsMetrics.chevronWidth
        height: SettingsMetrics.chevronHeight
        color: content.colors.secondaryText
        visible: content.isCycling
    }
}
