#include "settings/AppearanceSettings.h"

#include "appearance/LauncherBackgroundStyle.h"
#include "appearance/LauncherFontStyle.h"

namespace zelmo {

namespace {

using Key = PreferenceKey;

} // namespace

AppearanceSettings::AppearanceSettings(Preferences& preferences, QObject* parent)
    : QObject(parent), m_preferences(preferences),
      m_font(PickerSetting::make<Key::launcherFontStyle, LauncherFontStyle>(
          preferences, QStringLiteral("Font"), fontStyleCount, fontStyleFromRawValue, this)),
      m_background(PickerSetting::make<Key::launcherBackgroundStyle, LauncherBackgroundStyle>(
          preferences, QStringLiteral("Background"), backgroundStyleCount, backgroundStyleFromRawValue, this)),
      m_backgroundColor(
          ColorSetting::make<Key::launcherBackgroundRed, Key::launcherBackgroundGreen, Key::launcherBackgroundBlue>(
              preferences, QStringLiteral("Background Color"), this)),
      m_textColor(ColorSetting::make<Key::launcherTextRed, Key::launcherTextGreen, Key::launcherTextBlue>(
          preferences, QStringLiteral("App Text Color"), this)),
      m_sizes{
          FontSizeSetting::make<Key::titleFontSize>(preferences, QStringLiteral("Title Size"), {24, 42}, this),
          FontSizeSetting::make<Key::subtitleFontSize>(preferences, QStringLiteral("Subtitle Size"), {10, 18}, this),
          FontSizeSetting::make<Key::searchFontSize>(preferences, QStringLiteral("Search Size"), {14, 26}, this),
          FontSizeSetting::make<Key::categoryChipFontSize>(preferences, QStringLiteral("Tab Size"), {11, 18}, this),
          FontSizeSetting::make<Key::appNameFontSize>(preferences, QStringLiteral("App Name Size"), {12, 22}, this),
          FontSizeSetting::make<Key::appCategoryFontSize>(preferences, QStringLiteral("App Label Size"), {9, 16},
                                                          this)} {
    connect(m_background, &PickerSetting::indexChanged, this, &AppearanceSettings::backgroundChanged);
    connect(&preferences, &Preferences::changed, this, [this](PreferenceKey key) {
        if (key == Key::showAppTileBackground)
            Q_EMIT showsTileBackgroundsChanged();
    });
}

bool AppearanceSettings::backgroundColorCounts() const {
    return m_background->index() == static_cast<int>(LauncherBackgroundStyle::customColor);
}

bool AppearanceSettings::showsTileBackgrounds() const {
    return m_preferences.value<Key::showAppTileBackground>();
}

void AppearanceSettings::setShowsTileBackgrounds(bool shows) {
    m_preferences.setValue<Key::showAppTileBackground>(shows);
}

} // namespace zelmo
