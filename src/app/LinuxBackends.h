#pragma once

#include "catalog/AppScanner.h"
#include "platform/linux/appearance/PortalColorScheme.h"
#include "platform/linux/desktop/DesktopMotionPreference.h"
#include "platform/linux/files/InotifyFolderWatcher.h"
#include "platform/linux/fonts/FontconfigFaces.h"
#include "platform/linux/icons/FreedesktopIconSource.h"
#include "platform/linux/identity/ApplicationIdentifier.h"
#include "platform/linux/launching/GioLauncher.h"
#include "platform/linux/propertylist/PlistBundleReader.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"
#include "platform/linux/session/DBusSessionPresence.h"
#include "platform/linux/trash/XdgTrash.h"
#include "platform/linux/x11/EwmhPresentation.h"
#include "platform/linux/x11/X11DesktopCapture.h"
#include "platform/linux/x11/X11HotKeyService.h"
#include "platform/linux/x11/X11KeyboardBuffer.h"
#include "platform/linux/x11/X11MainScreen.h"
#include "platform/linux/x11/X11ProgramActivation.h"
#include "platform/linux/x11/X11StartupNotifier.h"
#include "platform/linux/x11/X11Workspace.h"

namespace zelmo {

// Everything that the Linux desktop gives to the program, made once at start-up, in the order of the
// members. The only place that knows which mechanism serves which interface.
struct LinuxBackends {
    LinuxBackends();

    AppScanner makeScanner();

    X11KeyboardBuffer keyboardBuffer;
    X11HotKeyService hotKeyService;
    X11MainScreen mainScreen;
    X11DesktopCapture desktopCapture;
    PlistPreferencesFile preferencesFile;
    PlistBundleReader bundleReader;
    ApplicationIdentifier identifier;
    std::unique_ptr<X11Connection> connection; // null where there is no X server
    DesktopMotionPreference motion;
    X11StartupNotifier startupNotifier;
    X11Workspace workspace;
    DBusSessionPresence presence;
    GioLauncher launcher;
    XdgTrash trash;
    InotifyFolderWatcher folderWatcher;
    FontconfigFaces fontFaces;
    FreedesktopIconSource iconSource;
    PortalColorScheme colorScheme;
    X11ProgramActivation programActivation;
    EwmhPresentation presentation;
};

} // namespace zelmo
