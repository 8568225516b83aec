#pragma once

#include "catalog/FileUrl.h"

#include <optional>

namespace zelmo {

// The values of a bundle's information property list that the program uses. A value of another
// type than string reads as absent.
struct BundleInformation {
    std::optional<QString> displayName;  // CFBundleDisplayName
    std::optional<QString> bundleName;   // CFBundleName
    std::optional<QString> categoryType; // LSApplicationCategoryType
    std::optional<QString> iconFile;     // CFBundleIconFile
    std::optional<QString> executable;   // CFBundleExecutable
};

// Opens application bundles. Called on the scanning thread; implementations are stateless.
class BundleReader {
public:
    virtual ~BundleReader() = default;

    // Nothing when the bundle can't be opened or its property list is missing, damaged or beyond the limits.
    virtual std::optional<BundleInformation> read(const FileUrl& bundle) const = 0;
};

} // namespace zelmo
