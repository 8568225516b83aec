#include "app/FlushAtExit.h"
#include "app/FontWarmUp.h"
#include "app/LinuxBackends.h"
#include "app/MenuBar.h"
#include "app/ProgramInstances.h"
#include "app/QtSharedApplication.h"
#include "app/RendererChoice.h"
#include "app/TerminationSignals.h"
#include "catalog/LauncherStore.h"
#include "hotkey/LauncherHotKeyController.h"
#include "iconart/ZelmoIconFactory.h"
#include "overlay/OverlayWindow.h"
#include "overlay/OverlayWindowController.h"
#include "preferences/Preferences.h"
#include "shell/ZelmoApp.h"
#include "shell/ZelmoAppDelegate.h"
#include "ui/AlertWindowPresenter.h"
#include "ui/IconCache.h"
#include "ui/WallView.h"

#include <QGuiApplication>

int main(int argc, char* argv[]) {
    using namespace zelmo;

    ProgramInstances instances;
    if (const std::optional<int> exitCode = instances.claim())
        return *exitCode;
    // Before there is another thread: it changes the environment.
    chooseRenderer();
    const FontWarmUp fonts;
    QGuiApplication application(argc, argv);
    QtSharedApplication sharedApplication;
    const TerminationSignals signalsEndTheLoop;

    LinuxBackends backends;
    // The wall opens by itself, so what is typed from here on is meant for it.
    backends.keyboardBuffer.begin();

    Preferences preferences(backends.preferencesFile);
    const FlushAtExit storedAtEveryEnd(preferences);
    IconCache icons(backends.iconSource);
    AlertWindowPresenter alerts;
    const auto makeOverlay = [&](LauncherStore& store) -> std::unique_ptr<Overlay> {
        return std::make_unique<OverlayWindowController>(
            store, OverlayServices{.mainScreen = backends.mainScreen,
                                   .keyboardBuffer = backends.keyboardBuffer,
                                   .loadContent = [&](OverlayWindow& window) {
                                       loadWall(window, store, preferences, backends.fontFaces, icons);
                                   }});
    };
    const auto makeStore = [&] {
        return std::make_unique<LauncherStore>(backends.makeScanner(),
                                               LauncherServices{.preferences = preferences,
                                                                .workspace = backends.workspace,
                                                                .launcher = backends.launcher,
                                                                .trash = backends.trash,
                                                                .alerts = alerts,
                                                                .folderWatcher = backends.folderWatcher,
                                                                .makeOverlay = makeOverlay,
                                                                // There is no such window yet.
                                                                .showSettingsWindow = [] {}});
    };
    const auto makeHotKeyController = [&](LauncherStore& store) {
        return std::make_unique<LauncherHotKeyController>(preferences, backends.hotKeyService,
                                                          [&store] { store.toggleOverlay(); });
    };
    const ZelmoApp zelmo({.application = sharedApplication,
                          .renderIcon = [&](int points) { return ZelmoIconFactory::appIcon(points, preferences); },
                          .makeStore = makeStore,
                          .makeHotKeyController = makeHotKeyController});
    zelmo.appDelegate().applicationDidFinishLaunching();
    instances.listen([&](ApplicationRequest request, const QByteArray& activationToken) {
        backends.startupNotifier.complete(activationToken);
        zelmo.appDelegate().handle(request);
    });
    std::optional<MenuBar> menuBar;
    // Of no use before the wall is up, and the buses may be slow.
    QMetaObject::invokeMethod(
        &application,
        [&] {
            backends.presence.start();
            menuBar.emplace(MenuBarServices{
                .store = zelmo.launcherStore(), .preferences = preferences, .application = sharedApplication});
        },
        Qt::QueuedConnection);
    return QGuiApplication::exec();
}
