#pragma once

#include "catalog/BundleReader.h"

namespace zelmo {

// Reads what an application bundle says of itself from its information property list, XML or binary.
// Has no state: one object serves every thread and outlives the sources that use it.
class PlistBundleReader : public BundleReader {
public:
    // "Contents/Info.plist", or "Info.plist" where a bundle is flat.
    std::optional<BundleInformation> read(const FileUrl& bundle) const override;
};

} // namespace zelmo
