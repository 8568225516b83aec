#pragma once

#include "catalog/AppIcon.h"
#include "catalog/FileUrl.h"

#include <QList>

#include <optional>

namespace zelmo {

// What a source says of one application.
struct FoundApplication {
    FileUrl url;
    QString name;
    std::optional<QString> categoryType; // as AppCategoryMapper takes it
    AppIcon icon;
};

// One pass over a source: the applications, and the folders in which a change means that another
// pass would find something else. A folder that does not exist yet belongs to them.
struct ApplicationListing {
    QList<FoundApplication> applications;
    QList<FileUrl> folders;
};

// A place that applications are installed in. Implementations keep no state between calls that is
// not guarded: `list` runs on the scanning thread, and two scans may overlap.
class ApplicationSource {
public:
    virtual ~ApplicationSource() = default;
    virtual ApplicationListing list() const = 0;
};

} // namespace zelmo
