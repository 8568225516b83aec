#pragma once

#include "catalog/LaunchableApp.h"

#include <QList>
#include <QLocale>

#include <memory>
#include <vector>

namespace zelmo {

class ApplicationSource;

struct ScanResult {
    QList<LaunchableApp> apps;
    // The folders whose change calls for another scan, the most telling first.
    QList<FileUrl> watchedFolders;
};

// Asks every source in turn and gives one catalog, sorted by name. Has no state of its own; several
// threads may scan at once.
class AppScanner {
public:
    explicit AppScanner(std::vector<std::unique_ptr<ApplicationSource>> sources,
                        const QLocale& locale = QLocale::system());
    AppScanner(AppScanner&&) noexcept;
    ~AppScanner();

    // One entry for each URL; a later one takes the place of an earlier.
    ScanResult scan() const;

private:
    std::vector<std::unique_ptr<ApplicationSource>> m_sources;
    QLocale m_locale;
};

} // namespace zelmo
