#include "catalog/AppCategoryMapper.h"

namespace zelmo::AppCategoryMapper {

namespace {

struct TypeRow {
    std::string_view categoryType;
    AppCategory category;
};

constexpr std::array typeTable{
    TypeRow{"public.app-category.productivity", AppCategory::productivity},
    TypeRow{"public.app-category.finance", AppCategory::productivity},
    TypeRow{"public.app-category.business", AppCategory::productivity},
    TypeRow{"public.app-category.utilities", AppCategory::utilities},
    TypeRow{"public.app-category.reference", AppCategory::utilities},
    TypeRow{"public.app-category.developer-tools", AppCategory::developer},
    TypeRow{"public.app-category.social-networking", AppCategory::social},
    TypeRow{"public.app-category.entertainment", AppCategory::entertainment},
    TypeRow{"public.app-category.games", AppCategory::entertainment},
    TypeRow{"public.app-category.music", AppCategory::entertainment},
    TypeRow{"public.app-category.video", AppCategory::entertainment},
    TypeRow{"public.app-category.graphics-design", AppCategory::creativity},
    TypeRow{"public.app-category.photography", AppCategory::creativity},
    TypeRow{"public.app-category.lifestyle", AppCategory::creativity},
    TypeRow{"public.app-category.education", AppCategory::reading},
    TypeRow{"public.app-category.news", AppCategory::reading},
    TypeRow{"public.app-category.books", AppCategory::reading},
};

} // namespace

AppCategory map(const std::optional<QString>& categoryType) {
    if (!categoryType)
        return AppCategory::other;
    for (const TypeRow& row : typeTable) {
        if (*categoryType ==
            QLatin1StringView(row.categoryType.data(), static_cast<qsizetype>(row.categoryType.size())))
            return row.category;
    }
    return AppCategory::other;
}

} // namespace zelmo::AppCategoryMapper
