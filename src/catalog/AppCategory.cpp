#include "catalog/AppCategory.h"

namespace zelmo {

namespace {

struct CategoryRow {
    AppCategory category;
    std::string_view title;
    AppCategoryGlassStyle style;
};

constexpr std::array categoryTable{
    CategoryRow{AppCategory::all,
                "All Apps",
                {{{{0.53, 0.73, 1.0}, {0.55, 0.88, 0.8}}}, {0.62, 0.79, 1.0}, "square.grid.2x2.fill", "All"}},
    CategoryRow{
        AppCategory::productivity,
        "Productivity & Finance",
        {{{{0.46, 0.62, 1.0}, {0.32, 0.83, 0.84}}}, {0.53, 0.74, 1.0}, "bolt.horizontal.circle.fill", "Productive"}},
    CategoryRow{AppCategory::utilities,
                "Utilities",
                {{{{0.42, 0.84, 0.78}, {0.39, 0.61, 1.0}}}, {0.42, 0.84, 0.78}, "sparkles", "Utility"}},
    CategoryRow{AppCategory::developer,
                "Developer Tools",
                {{{{0.67, 0.57, 1.0}, {0.38, 0.56, 1.0}}},
                 {0.72, 0.63, 1.0},
                 "chevron.left.forwardslash.chevron.right",
                 "Builder"}},
    CategoryRow{
        AppCategory::social,
        "Social",
        {{{{0.99, 0.55, 0.62}, {0.86, 0.46, 0.9}}}, {0.98, 0.57, 0.7}, "bubble.left.and.bubble.right.fill", "Social"}},
    CategoryRow{AppCategory::entertainment,
                "Entertainment",
                {{{{0.98, 0.63, 0.42}, {0.94, 0.38, 0.49}}}, {0.99, 0.68, 0.43}, "play.circle.fill", "Play"}},
    CategoryRow{
        AppCategory::creativity,
        "Creativity",
        {{{{0.98, 0.72, 0.43}, {0.57, 0.84, 0.78}}}, {0.96, 0.75, 0.43}, "paintbrush.pointed.fill", "Creative"}},
    CategoryRow{AppCategory::reading,
                "Information & Reading",
                {{{{0.67, 0.8, 1.0}, {0.84, 0.72, 0.97}}}, {0.73, 0.81, 1.0}, "book.closed.fill", "Reading"}},
    CategoryRow{AppCategory::other,
                "Other",
                {{{{1, 1, 1, 0.3}, {0.72, 0.78, 0.88}}}, {1, 1, 1, 0.82}, "circle.hexagongrid.fill", "Other"}},
};

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < categoryTable.size(); ++i) {
        if (categoryTable[i].category != allCategories[i] || static_cast<std::size_t>(allCategories[i]) != i)
            return false;
    }
    return categoryTable.size() == allCategories.size();
}
static_assert(isInOrder());

const CategoryRow& row(AppCategory category) {
    return categoryTable[static_cast<std::size_t>(category)];
}

QLatin1StringView latin1(std::string_view text) {
    return QLatin1StringView(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

QString rawValue(AppCategory category) {
    return latin1(row(category).title);
}

std::optional<AppCategory> categoryFromRawValue(QStringView rawValue) {
    for (const CategoryRow& candidate : categoryTable) {
        if (rawValue == latin1(candidate.title))
            return candidate.category;
    }
    return std::nullopt;
}

const AppCategoryGlassStyle& glassStyle(AppCategory category) {
    return row(category).style;
}

} // namespace zelmo
