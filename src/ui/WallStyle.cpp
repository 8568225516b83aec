#include "ui/WallStyle.h"

#include "appearance/LauncherBackgroundStyle.h"
#include "preferences/Preferences.h"
#include "ui/WallMetrics.h"

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

WallStyle::WallStyle(const Preferences& preferences, const FontFaces& faces)
    : m_preferences(preferences), m_resolver(faces) {
    connect(&preferences, &Preferences::changed, this, &WallStyle::changed);
}

QColor WallStyle::textColor() const {
    return toQColor({.red = m_preferences.value<Key::launcherTextRed>(),
                     .green = m_preferences.value<Key::launcherTextGreen>(),
                     .blue = m_preferences.value<Key::launcherTextBlue>()});
}

LauncherFontStyle WallStyle::fontStyle() const {
    return fontStyleFromRawValue(m_preferences.value<Key::launcherFontStyle>())
        .value_or(LauncherFontStyle::appleDefault);
}

QFont WallStyle::font(double size, FontWeight weight) const {
    return m_resolver.font(fontStyle(), size, weight);
}

QFont WallStyle::spacedFont(double size, FontWeight weight, double leastSpacing) const {
    QFont spaced = font(size, weight);
    spaced.setCapitalization(QFont::AllUppercase);
    spaced.setLetterSpacing(QFont::AbsoluteSpacing, std::max(tracking(fontStyle()), leastSpacing));
    return spaced;
}

QFont WallStyle::titleFont() const {
    return font(m_preferences.value<Key::titleFontSize>(), FontWeight::heavy);
}

QFont WallStyle::subtitleFont() const {
    return spacedFont(m_preferences.value<Key::subtitleFontSize>(), FontWeight::semibold,
                      WallMetrics::subtitleTracking());
}

QFont WallStyle::searchFont() const {
    return font(m_preferences.value<Key::searchFontSize>(), FontWeight::medium);
}

QFont WallStyle::appNameFont() const {
    return font(m_preferences.value<Key::appNameFontSize>(), FontWeight::semibold);
}

QFont WallStyle::appCategoryFont() const {
    return spacedFont(m_preferences.value<Key::appCategoryFontSize>(), FontWeight::bold,
                      WallMetrics::categoryTracking());
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
