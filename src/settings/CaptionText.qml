import Zelmo.Settings

SettingsText {
    color: colors.secondaryText
    font.pixelSize: SettingsMetrics.captionSize
}
