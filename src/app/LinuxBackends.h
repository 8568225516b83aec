#pragma once

#include "catalog/AppScanner.h"
#include "platform/linux/files/InotifyFolderWatcher.h"
#include "platform/linux/icons/FreedesktopIconSource.h"
#include "platform/linux/launching/GioWorkspace.h"
#include "platform/linux/propertylist/PlistBundleReader.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"
#include "platform/linux/x11/X11KeyboardBuffer.h"
#include "platform/linux/x11/X11MainScreen.h"

namespace zelmo {

// Everything that the Linux desktop gives to the program, made once at start-up, in the order of the
// members. The only place that knows which mechanism serves which interface.
struct LinuxBackends {
    LinuxBackends();

    AppScanner makeScanner() const;

    X11KeyboardBuffer keyboardBuffer;
    X11MainScreen mainScreen;
    PlistPreferencesFile preferencesFile;
    PlistBundleReader bundleReader;
    GioWorkspace workspace;
    InotifyFolderWatcher folderWatcher;
    FreedesktopIconSource iconSource;
};

} // namespace zelmo
