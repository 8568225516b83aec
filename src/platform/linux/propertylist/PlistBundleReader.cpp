#include "platform/linux/propertylist/PlistBundleReader.h"

#include "platform/linux/files/RegularFile.h"
#include "platform/linux/propertylist/PropertyList.h"

namespace zelmo {

namespace {

// Far beyond what bundles hold; a file made to take long is refused early.
constexpr PropertyListLimits informationLimits{.bytes = 1024 * 1024, .nodes = 50'000};

} // namespace

std::optional<BundleInformation> PlistBundleReader::read(const FileUrl& bundle) const {
    const QByteArray folder = bundle.nativePath();
    FileContents contents = readRegularFile(folder + "/Contents/Info.plist", informationLimits.bytes);
    if (contents.status == FileReadStatus::missing)
        contents = readRegularFile(folder + "/Info.plist", informationLimits.bytes);
    if (contents.status != FileReadStatus::read)
        return std::nullopt;
    const std::optional<PropertyList> list = PropertyList::parse(contents.bytes, informationLimits);
    if (!list)
        return std::nullopt;
    return BundleInformation{.displayName = list->string("CFBundleDisplayName"),
                             .bundleName = list->string("CFBundleName"),
                             .categoryType = list->string("LSApplicationCategoryType"),
                             .iconFile = list->string("CFBundleIconFile"),
                             .executable = list->string("CFBundleExecutable")};
}

} // namespace zelmo
