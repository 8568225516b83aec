#pragma once

#include "preferences/StyleColor.h"

#include <QList>
#include <QString>

#include <optional>

namespace zelmo {

class Preferences;

// What the wall paints behind its content, in the order of the settings' picker.
enum class LauncherBackgroundStyle {
    desktopBlur,
    customColor,
    linen,
    softSky,
    morningMist,
    candyPop,
    sunsetPunch,
    citrusSplash,
    grapeSoda,
    mintCoral,
    magmaGlow,
    electricGarden,
    berrySky,
    graphiteGlow,
};

inline constexpr int backgroundStyleCount = static_cast<int>(LauncherBackgroundStyle::graphiteGlow) + 1;

// The case name, under which a style is stored.
QString rawValue(LauncherBackgroundStyle style);
QString title(LauncherBackgroundStyle style);
// Nothing for a text that is not exactly one of the case names.
std::optional<LauncherBackgroundStyle> backgroundStyleFromRawValue(QStringView rawValue);

// The user's own background colour, each component taken as stored and, where there is no number, from the defaults.
StyleColor customBackgroundColor(const Preferences& preferences);

// The stops of the gradient, evenly spaced from the top-leading to the bottom-trailing corner. The
// desktop blur has two clear ones and the custom colour twice the user's colour.
QList<StyleColor> colors(LauncherBackgroundStyle style, const Preferences& preferences);

} // namespace zelmo
