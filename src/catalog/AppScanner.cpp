#include "catalog/AppScanner.h"

#include "catalog/AppCategoryMapper.h"
#include "catalog/ApplicationSource.h"
#include "catalog/NameOrder.h"

namespace zelmo {

AppScanner::AppScanner(std::vector<std::unique_ptr<ApplicationSource>> sources, const QLocale& locale)
    : m_sources(std::move(sources)), m_locale(locale) {}

AppScanner::AppScanner(AppScanner&&) noexcept = default;

AppScanner::~AppScanner() = default;

ScanResult AppScanner::scan() const {
    ScanResult result;
    QHash<FileUrl, qsizetype> position;
    for (const auto& source : m_sources) {
        ApplicationListing listing = source->list();
        position.reserve(position.size() + listing.applications.size());
        for (FoundApplication& found : listing.applications) {
            LaunchableApp app{.id = found.url,
                              .name = std::move(found.name),
                              .url = found.url,
                              .icon = std::move(found.icon),
                              .category = AppCategoryMapper::map(found.categoryType)};
            const auto known = position.constFind(found.url);
            if (known != position.constEnd()) {
                result.apps[*known] = std::move(app);
            } else {
                position.insert(found.url, result.apps.size());
                result.apps.append(std::move(app));
            }
        }
        result.watchedFolders += listing.folders;
    }
    sortByName(result.apps, m_locale);
    return result;
}

} // namespace zelmo
