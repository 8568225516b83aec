#include "ui/WallStyle.h"

#include "appearance/LauncherBackgroundStyle.h"
#include "preferences/Preferences.h"

namespace zelmo {

namespace {

using Key = PreferenceKey;

// Painted for the desktop blur as long as the desktop behind the wall is not captured.
constexpr std::array unblurredStops{
    StyleColor{0.10, 0.09, 0.25},
    StyleColor{0.33, 0.17, 0.47},
    StyleColor{0.69, 0.32, 0.46},
};

} // namespace

QColor toQColor(const StyleColor& color) {
    const auto component = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue),
                            component(color.opacity));
}

WallStyle::WallStyle(const Preferences& preferences) : m_preferences(preferences) {
    connect(&preferences, &Preferences::changed, this, &WallStyle::changed);
}

QColor WallStyle::textColor() const {
    return toQColor({.red = m_preferences.value<Key::launcherTextRed>(),
                     .green = m_preferences.value<Key::launcherTextGreen>(),
                     .blue = m_preferences.value<Key::launcherTextBlue>()});
}

qreal WallStyle::titleFontSize() const {
    return m_preferences.value<Key::titleFontSize>();
}

qreal WallStyle::subtitleFontSize() const {
    return m_preferences.value<Key::subtitleFontSize>();
}

qreal WallStyle::searchFontSize() const {
    return m_preferences.value<Key::searchFontSize>();
}

qreal WallStyle::appNameFontSize() const {
    return m_preferences.value<Key::appNameFontSize>();
}

qreal WallStyle::appCategoryFontSize() const {
    return m_preferences.value<Key::appCategoryFontSize>();
}

QList<QColor> WallStyle::backgroundColors() const {
    const auto style = backgroundStyleFromRawValue(m_preferences.value<Key::launcherBackgroundStyle>())
                           .value_or(LauncherBackgroundStyle::desktopBlur);
    QList<QColor> stops;
    if (style == LauncherBackgroundStyle::desktopBlur)
        std::transform(unblurredStops.begin(), unblurredStops.end(), std::back_inserter(stops), toQColor);
    else
        for (const StyleColor& stop : colors(style, m_preferences))
            stops.append(toQColor(stop));
    return stops;
}

} // namespace zelmo
