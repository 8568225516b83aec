#include "fuzz/ScratchFolder.h"
#include "platform/linux/propertylist/PlistBundleReader.h"

using namespace zelmo;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::ScratchFolder folder;
    folder.write("A.app/Contents/Info.plist", fuzz::copyOf(data, size));
    const auto information = PlistBundleReader().read(FileUrl::fromNativePath(folder.path("A.app")));
    if (!information)
        return 0;
    for (const auto& text : {information->displayName, information->bundleName, information->categoryType,
                             information->iconFile, information->executable})
        fuzz::require(!text || text->size() <= static_cast<qsizetype>(size), "no text is longer than the file");
    return 0;
}
