#pragma once

#include "shell/ProgramInstance.h"

#include <QObject>

#include <functional>

namespace zelmo {

class LauncherHotKeyController;
class LauncherStore;
class SharedApplication;

// Answers what the desktop tells the program: that it has finished launching, and what is asked of it from outside.
// Owned by the application declaration; it lives as long as the process, on the main thread.
class ZelmoAppDelegate : public QObject {
    Q_OBJECT

public:
    // All of them outlive it.
    ZelmoAppDelegate(SharedApplication& application, LauncherStore& store, LauncherHotKeyController& hotKeyController);

    // Takes the shortcut and has the wall shown in the next turn of the main loop.
    void applicationDidFinishLaunching();

    // The program was started again. Shows the wall whether or not there are windows already; always true, for there
    // is nothing else that the desktop should do.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);

    void handle(ApplicationRequest request);

private:
    SharedApplication& m_application;
    LauncherStore& m_store;
    LauncherHotKeyController& m_hotKeyController;
};

} // namespace zelmo
