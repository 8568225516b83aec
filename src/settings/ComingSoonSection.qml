import QtQuick
import Zelmo.Settings

SettingsSection {
    id: section

    required property ComingSoonSettings setting
    required property bool animates

    title: "Coming Soon"

    RowButton {
        colors: section.colors
        symbol: section.setting.symbol
        symbolSize: SettingsMetrics.extrasSymbolSize
        symbolWeight: Font.Black
        badgeColors: SettingsMetrics.extrasColors
        text: section.setting.title
        caption: section.setting.caption
        onClicked: section.setting.revealComingSoonExtras()
    }
    CaptionRow {
        colors: section.colors
        text: "Tap three times to preview upcoming layouts."
        visible: !section.setting.showsComingSoonExtras
    }
    Item {
        width: parent.width
        height: section.setting.showsComingSoonExtras ? extras.height : 0
        opacity: section.setting.showsComingSoonExtras ? 1 : 0
        visible: height > 0
        clip: true

        Behavior on height {
            enabled: section.animates

            NumberAnimation {
                duration: SettingsMetrics.revealDuration
                easing.type: Easing.BezierSpline
                easing.bezierCurve: SettingsMetrics.revealCurve
            }
        }
        Behavior on opacity {
            enabled: section.animates

            NumberAnimation {
                duration: SettingsMetrics.revealDuration
                easing.type: Easing.BezierSpline
                easing.bezierCurve: SettingsMetrics.revealCurve
            }
        }

        RowSeparator {
            colors: section.colors
        }
        Column {
            id: extras

            width: parent.width

            SettingsRow {
                colors: section.colors
                title: section.setting.interfaceStyle.title

                SegmentedPicker {
                    colors: section.colors
                    setting: section.setting.interfaceStyle
                }
            }
            CaptionRow {
                colors: section.colors
                text: "Tap Coming Soon three times to reveal these playful previews."
            }
        }
    }
}
