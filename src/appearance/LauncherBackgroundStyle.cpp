#include "appearance/LauncherBackgroundStyle.h"

#include "appearance/StyleTable.h"
#include "preferences/Preferences.h"

namespace zelmo {

namespace {

struct BackgroundRow {
    LauncherBackgroundStyle style;
    std::string_view rawValue;
    std::string_view title;
    int stopCount = 0; // 0: the stops are not fixed
    std::array<StyleColor, 3> stops{};
};

using Style = LauncherBackgroundStyle;

constexpr StyleTable backgroundTable(std::array{
    BackgroundRow{Style::desktopBlur, "desktopBlur", "Desktop Blur", 2, {{{0, 0, 0, 0}, {0, 0, 0, 0}}}},
    BackgroundRow{Style::customColor, "customColor", "Custom Color"},
    BackgroundRow{Style::linen, "linen", "Linen", 3, {{{0.99, 0.96, 0.90}, {0.93, 0.88, 0.78}, {0.88, 0.94, 0.93}}}},
    BackgroundRow{
        Style::softSky, "softSky", "Soft Sky", 3, {{{0.90, 0.96, 1.00}, {0.78, 0.88, 1.00}, {0.99, 0.93, 0.88}}}},
    BackgroundRow{Style::morningMist,
                  "morningMist",
                  "Morning Mist",
                  3,
                  {{{0.96, 0.98, 0.95}, {0.84, 0.93, 0.88}, {0.93, 0.91, 0.98}}}},
    BackgroundRow{Style::candyPop, "candyPop", "Candy Pop", 2, {{{1.00, 0.34, 0.55}, {0.42, 0.42, 1.00}}}},
    BackgroundRow{Style::sunsetPunch, "sunsetPunch", "Sunset Punch", 2, {{{1.00, 0.38, 0.25}, {1.00, 0.78, 0.28}}}},
    BackgroundRow{Style::citrusSplash, "citrusSplash", "Citrus Splash", 2, {{{0.98, 0.88, 0.22}, {0.20, 0.78, 0.45}}}},
    BackgroundRow{Style::grapeSoda, "grapeSoda", "Grape Soda", 2, {{{0.38, 0.18, 0.78}, {0.92, 0.32, 0.86}}}},
    BackgroundRow{Style::mintCoral, "mintCoral", "Mint Coral", 2, {{{0.18, 0.82, 0.72}, {1.00, 0.46, 0.40}}}},
    BackgroundRow{
        Style::magmaGlow, "magmaGlow", "Magma Glow", 3, {{{0.12, 0.08, 0.18}, {0.94, 0.26, 0.20}, {1.00, 0.66, 0.22}}}},
    BackgroundRow{
        Style::electricGarden, "electricGarden", "Electric Garden", 2, {{{0.09, 0.72, 0.38}, {0.00, 0.78, 0.92}}}},
    BackgroundRow{Style::berrySky, "berrySky", "Berry Sky", 2, {{{0.52, 0.22, 0.92}, {0.28, 0.72, 1.00}}}},
    BackgroundRow{Style::graphiteGlow,
                  "graphiteGlow",
                  "Graphite Glow",
                  3,
                  {{{0.08, 0.09, 0.12}, {0.34, 0.38, 0.48}, {0.88, 0.48, 0.32}}}},
});

} // namespace

QString rawValue(LauncherBackgroundStyle style) {
    return latin1(backgroundTable[style].rawValue);
}

QString title(LauncherBackgroundStyle style) {
    return latin1(backgroundTable[style].title);
}

std::optional<LauncherBackgroundStyle> backgroundStyleFromRawValue(QStringView rawValue) {
    return backgroundTable.find(rawValue);
}

StyleColor customBackgroundColor(const Preferences& preferences) {
    return {.red = preferences.value<PreferenceKey::launcherBackgroundRed>(),
            .green = preferences.value<PreferenceKey::launcherBackgroundGreen>(),
            .blue = preferences.value<PreferenceKey::launcherBackgroundBlue>()};
}

QList<StyleColor> colors(LauncherBackgroundStyle style, const Preferences& preferences) {
    if (style == Style::customColor) {
        const StyleColor custom = customBackgroundColor(preferences);
        return {custom, custom};
    }
    const BackgroundRow& entry = backgroundTable[style];
    return {entry.stops.begin(), entry.stops.begin() + entry.stopCount};
}

} // namespace zelmo
