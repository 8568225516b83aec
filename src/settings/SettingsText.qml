import QtQuick
import Zelmo.Settings

Text {
    required property SettingsPalette colors

    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    color: colors.text
    font.pixelSize: SettingsMetrics.bodySize
}
