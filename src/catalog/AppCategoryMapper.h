#pragma once

#include "catalog/AppCategory.h"

namespace zelmo::AppCategoryMapper {

// The category of an application that declares `categoryType`, such as "public.app-category.utilities",
// compared exactly; `other` when it declares none or an unknown one. Never `all`.
AppCategory map(const std::optional<QString>& categoryType);

} // namespace zelmo::AppCategoryMapper
