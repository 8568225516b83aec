import QtQuick
import Zelmo.Settings
import Zelmo.Ui

// The wall's background in small, with its name below.
Item {
    id: preview

    required property SettingsPalette colors
    required property AppIconSettings setting

    width: parent.width
    height: content.height + 2 * SettingsMetrics.rowVerticalPadding

    RowSeparator {
        colors: preview.colors
    }

    Column {
        id: content

        anchors.centerIn: parent
        spacing: SettingsMetrics.headingSpacing

        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: SettingsMetrics.previewWidth
            height: SettingsMetrics.previewHeight

            DesktopBlurSwatchItem {
                anchors.fill: parent
                radius: SettingsMetrics.previewRadius
                visible: preview.setting.previewIsCovered
            }
            PlateItem {
                anchors.fill: parent
                radius: SettingsMetrics.previewRadius
                colors: preview.setting.previewColors
                strokeColors: [preview.colors.controlOutline]
            }
        }
        CaptionText {
            anchors.horizontalCenter: parent.horizontalCenter
            colors: preview.colors
            text: preview.setting.previewCaption

            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
