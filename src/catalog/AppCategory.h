#pragma once

#include "preferences/StyleColor.h"

#include <QString>

#include <array>
#include <optional>
#include <string_view>

namespace zelmo {

// The launcher's categories, in the order of the category bar.
enum class AppCategory {
    all,
    productivity,
    utilities,
    developer,
    social,
    entertainment,
    creativity,
    reading,
    other,
};

// How a category looks on chips and cards.
struct AppCategoryGlassStyle {
    std::array<StyleColor, 2> gradientColors;
    StyleColor accentColor;
    std::string_view symbolName;
    std::string_view shortLabel;
};

inline constexpr std::array allCategories{
    AppCategory::all,        AppCategory::productivity, AppCategory::utilities,
    AppCategory::developer,  AppCategory::social,       AppCategory::entertainment,
    AppCategory::creativity, AppCategory::reading,      AppCategory::other,
};

// The raw value, which is also the visible title.
QString rawValue(AppCategory category);
// Nothing for a text that is not exactly one of the titles.
std::optional<AppCategory> categoryFromRawValue(QStringView rawValue);
const AppCategoryGlassStyle& glassStyle(AppCategory category);

} // namespace zelmo
