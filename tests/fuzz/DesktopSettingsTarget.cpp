#include "fuzz/ScratchFolder.h"
#include "platform/linux/desktop/KdeAnimations.h"
#include "platform/linux/icons/IconThemeName.h"

using namespace zelmo;

// The settings files of two toolkits, from which the icon theme and the wish for less movement are read.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::ScratchFolder folder;
    for (const char* name : {"kdeglobals", "gtk-3.0/settings.ini"})
        folder.write(name, fuzz::copyOf(data, size));
    const QByteArray path = folder.path("");
    kdeReducesMotion({path});
    for (const char* desktop : {"KDE", "GNOME"}) {
        const auto theme =
            IconThemeName::chosen({.home = path, .dataFolders = {}, .configFolders = {path}, .desktops = {desktop}});
        fuzz::require(!theme || isFolderName(*theme), "a theme lies among the themes");
    }
    return 0;
}
