#pragma once

#include <QString>

#include <optional>

namespace zelmo {

// How the wall lays its applications out, in the order of the settings' picker.
enum class LauncherInterfaceStyle { grid, list, minimal, tiles };

inline constexpr int interfaceStyleCount = static_cast<int>(LauncherInterfaceStyle::tiles) + 1;

// How one application draws itself. Follows from the layout and is stored nowhere.
enum class AppTileVariant { grid, list, minimal, tile };

// The case name, under which a style is stored.
QString rawValue(LauncherInterfaceStyle style);
QString title(LauncherInterfaceStyle style);
// Nothing for a text that is not exactly one of the case names.
std::optional<LauncherInterfaceStyle> interfaceStyleFromRawValue(QStringView rawValue);
AppTileVariant tileVariant(LauncherInterfaceStyle style);

} // namespace zelmo
