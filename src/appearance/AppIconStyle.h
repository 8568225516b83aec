#pragma once

#include <QString>

#include <optional>

namespace zelmo {

class Preferences;

// Which of its drawn icons the program shows, in the order of the settings' picker.
enum class AppIconStyle { mosaic, aurora, stack, spark };

inline constexpr int appIconStyleCount = static_cast<int>(AppIconStyle::spark) + 1;

// The case name, under which a style is stored.
QString rawValue(AppIconStyle style);
QString title(AppIconStyle style);
// Nothing for a text that is not exactly one of the case names.
std::optional<AppIconStyle> appIconStyleFromRawValue(QStringView rawValue);
// The user's; the first one where there is none of that name.
AppIconStyle chosenAppIconStyle(const Preferences& preferences);

} // namespace zelmo
