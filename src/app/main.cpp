#include "app/FontWarmUp.h"
#include "app/LinuxBackends.h"
#include "app/RendererChoice.h"
#include "app/TerminationSignals.h"
#include "catalog/LauncherStore.h"
#include "hotkey/LauncherHotKeyController.h"
#include "overlay/OverlayWindow.h"
#include "overlay/OverlayWindowController.h"
#include "preferences/Preferences.h"
#include "ui/AlertWindowPresenter.h"
#include "ui/IconCache.h"
#include "ui/WallView.h"

#include <QGuiApplication>

int main(int argc, char* argv[]) {
    using namespace zelmo;

    // Before there is another thread: it changes the environment.
    chooseRenderer();
    const FontWarmUp fonts;
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Zelmo"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.zelmo.Zelmo"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const TerminationSignals signalsEndTheLoop;

    LinuxBackends backends;
    // The wall opens by itself, so what is typed from here on is meant for it.
    backends.keyboardBuffer.begin();

    Preferences preferences(backends.preferencesFile);
    IconCache icons(backends.iconSource);
    AlertWindowPresenter alerts;
    const auto makeOverlay = [&](LauncherStore& store) -> std::unique_ptr<Overlay> {
        return std::make_unique<OverlayWindowController>(
            store, OverlayServices{
                       .mainScreen = backends.mainScreen,
                       .keyboardBuffer = backends.keyboardBuffer,
                       .loadContent = [&](OverlayWindow& window) { loadWall(window, store, preferences, icons); }});
    };
    LauncherStore store(backends.makeScanner(), {.preferences = preferences,
                                                 .workspace = backends.workspace,
                                                 .launcher = backends.launcher,
                                                 .trash = backends.trash,
                                                 .alerts = alerts,
                                                 .folderWatcher = backends.folderWatcher,
                                                 .makeOverlay = makeOverlay,
                                                 // Nothing asks for it yet.
                                                 .showSettingsWindow = [] {}});
    LauncherHotKeyController hotKeyController(preferences, backends.hotKeyService, [&store] { store.toggleOverlay(); });
    hotKeyController.configure();
    // The scan is queued already and runs beside the loading of the wall.
    QMetaObject::invokeMethod(&store, &LauncherStore::showOverlay, Qt::QueuedConnection);
    // Of no use before the wall is up, and the buses may be slow.
    QMetaObject::invokeMethod(
        &application, [&backends] { backends.presence.start(); }, Qt::QueuedConnection);
    return QGuiApplication::exec();
}
