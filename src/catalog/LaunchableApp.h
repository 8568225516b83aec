#pragma once

#include "catalog/AppCategory.h"
#include "catalog/AppIcon.h"
#include "catalog/FileUrl.h"

namespace zelmo {

// One installed application, as the last scan found it. A value; two are equal when all fields are.
struct LaunchableApp {
    FileUrl id; // always the same as `url`
    QString name;
    FileUrl url;
    AppIcon icon;
    AppCategory category = AppCategory::other;

    friend bool operator==(const LaunchableApp&, const LaunchableApp&) = default;
    friend size_t qHash(const LaunchableApp& app, size_t seed = 0) {
        return qHashMulti(seed, app.id, app.name, app.url, app.icon, static_cast<int>(app.category));
    }
};

} // namespace zelmo
