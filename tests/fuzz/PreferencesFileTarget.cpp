#include "fuzz/ScratchFolder.h"
#include "platform/linux/files/RegularFile.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"
#include "platform/linux/propertylist/PropertyList.h"

using namespace zelmo;

// A file that a person or another program has edited: the program reads it, changes one value and is started again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::ScratchFolder folder;
    constexpr std::size_t sizeLimit = 1024 * 1024;
    const QByteArray bytes = fuzz::copyOf(data, size);
    folder.write("preferences.plist", bytes);
    folder.remove("preferences.plist.unreadable");
    const FileUrl file = FileUrl::fromNativePath(folder.path("preferences.plist"));

    PlistPreferencesFile storage(file, sizeLimit);
    PreferenceValues before = storage.read();
    const bool isAside = QFile::exists(QFile::decodeName(folder.path("preferences.plist.unreadable")));
    fuzz::require(before.isEmpty() || !isAside, "a file is read or set aside");

    fuzz::require(storage.write({{preferenceName(PreferenceKey::titleFontSize), 31.5}}), "a value can be stored");
    before.insert(preferenceName(PreferenceKey::titleFontSize), 31.5);
    const auto list = PropertyList::parse(readRegularFile(file.nativePath(), sizeLimit).bytes, {.bytes = sizeLimit});
    fuzz::require(list.has_value(), "what was stored can be read");
    const PreferenceValues after = list->values();
    fuzz::require(after.value(preferenceName(PreferenceKey::titleFontSize)) == PreferenceValue(31.5),
                  "what was set is stored");
    fuzz::require(after.size() == before.size(), "what was not set stays");
    return 0;
}
