#include "fuzz/FuzzTarget.h"
#include "platform/linux/icons/IconThemeDescription.h"
#include "platform/linux/icons/IconThemeName.h"

#include <cmath>

using namespace zelmo;

namespace {

void use(const IconThemeFolder& folder) {
    for (const int points : {1, 16, 48, 512}) {
        folder.matches(points, 1.25);
        fuzz::require(folder.distance(points) >= 0, "no distance is negative");
        fuzz::require(std::isfinite(folder.drawnPixels(points)), "icons have a size");
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = fuzz::copyOf(data, size);
    if (const auto conventional = IconThemeDescription::conventionalFolder(bytes))
        use(*conventional);
    const auto description = IconThemeDescription::parse(bytes);
    if (!description)
        return 0;
    for (const QByteArray& parent : description->parents)
        fuzz::require(isFolderName(parent), "a theme lies among the themes");
    for (const IconThemeFolder& folder : description->folders) {
        fuzz::require(!folder.path.startsWith('/') && !folder.path.split('/').contains(".."),
                      "a folder lies in its theme");
        use(folder);
    }
    return 0;
}
