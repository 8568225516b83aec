import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Zelmo.Settings

// The grouped form of all settings.
FocusScope {
    id: view

    required property SettingsForm form
    required property SettingsPalette colors
    // Off for users who want less movement.
    required property bool animates

    focus: true

    Keys.onPressed: event => event.accepted = scroller.handle(event.key)

    FormScroller {
        id: scroller

        area: area
        focusItem: view.Window.activeFocusItem
        margin: SettingsMetrics.rowHeight
    }

    Flickable {
        id: area

        anchors.fill: parent
        contentHeight: content.height + 2 * SettingsMetrics.formPadding
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: FormScrollBar {
            colors: view.colors
        }

        Column {
            id: content

            x: (area.width - width) / 2
            y: SettingsMetrics.formPadding
            width: Math.min(area.width - 2 * SettingsMetrics.formPadding, SettingsMetrics.formMaximumWidth)
            spacing: SettingsMetrics.sectionSpacing

            SettingsSection {
                colors: view.colors
                title: "Appearance"

                SettingsRow {
                    colors: view.colors
                    title: view.form.appearance.font.title

                    ListPicker {
                        colors: view.colors
                        setting: view.form.appearance.font
                    }
                }
                SettingsRow {
                    colors: view.colors
                    title: view.form.appearance.background.title

                    ListPicker {
                        colors: view.colors
                        setting: view.form.appearance.background
                    }
                }
                SettingsRow {
                    colors: view.colors
                    title: view.form.appearance.backgroundColor.title
                    enabled: view.form.appearance.backgroundColorCounts

                    ColorWell {
                        colors: view.colors
                        setting: view.form.appearance.backgroundColor
                    }
                }
                SettingsRow {
                    colors: view.colors
                    title: view.form.appearance.textColor.title

                    ColorWell {
                        colors: view.colors
                        setting: view.form.appearance.textColor
                    }
                }
                Repeater {
                    model: view.form.appearance.sizes

                    SettingsRow {
                        required property FontSizeSetting modelData

                        colors: view.colors
                        title: modelData.title

                        SizeSlider {
                            colors: view.colors
                            setting: modelData
                        }
                    }
                }
                SettingsRow {
                    colors: view.colors
                    title: "App Tile Backgrounds"

                    ToggleSwitch {
                        colors: view.colors
                        title: "App Tile Backgrounds"
                        animates: view.animates
                        checked: view.form.appearance.showsTileBackgrounds
                        onToggled: view.form.appearance.showsTileBackgrounds = checked
                    }
                }
            }

            SettingsSection {
                colors: view.colors
                title: "App Icon"

                IconPicker {
                    colors: view.colors
                    setting: view.form.appIcon
                }
                CaptionRow {
                    colors: view.colors
                    text: "Four icon directions: Mosaic, Aurora, Stack, and Spark. The selected icon is applied to Zelmo while the app is running."
                }
                BackgroundPreview {
                    colors: view.colors
                    setting: view.form.appIcon
                }
            }

            SettingsSection {
                colors: view.colors
                title: "Launcher Shortcut"

                RowButton {
                    colors: view.colors
                    text: "Launcher Shortcut"
                    caption: view.form.shortcut.title
                    isCycling: true
                    onClicked: view.form.shortcut.stepToNext()
                }
                CaptionRow {
                    colors: view.colors
                    text: view.form.shortcut.status
                    textColor: view.form.shortcut.statusIsFailure ? view.colors.orange : view.colors.secondaryText
                }
                CaptionRow {
                    colors: view.colors
                    text: "If Control + Space still opens the old launcher, quit that old app or clear its shortcut first, then click Use Control + Space again."
                }
                RowButton {
                    colors: view.colors
                    symbol: "keyboard.fill"
                    symbolSize: SettingsMetrics.keyboardSymbolSize
                    badgeColors: SettingsMetrics.keyboardColors
                    text: "Use Control + Space"
                    font.weight: Font.Normal
                    isMarked: view.form.shortcut.isControlSpace
                    onClicked: view.form.shortcut.useControlSpace()
                }
            }

            SettingsSection {
                colors: view.colors
                title: "Hidden Apps"

                CaptionRow {
                    colors: view.colors
                    text: view.form.hiddenApps.sentence
                    textColor: view.colors.text
                    font.pixelSize: SettingsMetrics.bodySize
                }
                SettingsRow {
                    colors: view.colors

                    PushButton {
                        colors: view.colors
                        text: "Restore Hidden Apps"
                        onClicked: view.form.hiddenApps.restore()
                    }
                }
            }

            ComingSoonSection {
                colors: view.colors
                setting: view.form.comingSoon
                animates: view.animates
            }
        }
    }
}
