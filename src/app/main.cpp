#include "app/FlushAtExit.h"
#include "app/FontWarmUp.h"
#include "app/LinuxBackends.h"
#include "app/MemoryUse.h"
#include "app/MenuBar.h"
#include "app/ProgramInstances.h"
#include "app/QtSharedApplication.h"
#include "app/RendererChoice.h"
#include "app/TerminationSignals.h"
#include "catalog/LauncherStore.h"
#include "hotkey/LauncherHotKeyController.h"
#include "iconart/ZelmoIconFactory.h"
#include "overlay/OverlayWindowController.h"
#include "preferences/Preferences.h"
#include "settings/AppSettingsWindowController.h"
#include "shell/ZelmoApp.h"
#include "shell/ZelmoAppDelegate.h"
#include "ui/AccessibleButton.h"
#include "ui/AlertWindowPresenter.h"
#include "ui/DesktopPicture.h"
#include "ui/IconCache.h"
#include "ui/WallContent.h"
#include "ui/WallScene.h"

#include <QGuiApplication>
#include <QStyleHints>

#include <limits>

int main(int argc, char* argv[]) {
    using namespace zelmo;

    ProgramInstances instances;
    if (const std::optional<int> exitCode = instances.claim())
        return *exitCode;
    // Before there is another thread: it changes the environment.
    chooseRenderer();
    limitKeptMemory();
    const FontWarmUp fonts;
    QGuiApplication application(argc, argv);
    QtSharedApplication sharedApplication;
    const TerminationSignals signalsEndTheLoop;

    // A press that lasts means the same as a short one, so there is no time after which it is none any more.
    QGuiApplication::styleHints()->setMousePressAndHoldInterval(std::numeric_limits<int>::max());
    // Nothing is translated, so only the locale says so.
    QGuiApplication::setLayoutDirection(QLocale::system().textDirection());

    installAccessibleButtons();
    WallScene wallScene;
    LinuxBackends backends;
    // The wall opens by itself, so what is typed from here on is meant for it.
    backends.keyboardBuffer.begin();

    Preferences preferences(backends.preferencesFile);
    const FlushAtExit storedAtEveryEnd(preferences);
    IconCache icons(backends.iconSource);
    AlertWindowPresenter alerts;
    std::unique_ptr<WallContent> wall;
    const auto makeOverlay = [&](LauncherStore& store) -> std::unique_ptr<Overlay> {
        wall = std::make_unique<WallContent>(WallServices{.scene = wallScene,
                                                          .store = store,
                                                          .preferences = preferences,
                                                          .fontFaces = backends.fontFaces,
                                                          .icons = icons,
                                                          .desktopCapture = backends.desktopCapture,
                                                          .motion = backends.motion});
        return std::make_unique<OverlayWindowController>(store,
                                                         OverlayServices{.mainScreen = backends.mainScreen,
                                                                         .keyboardBuffer = backends.keyboardBuffer,
                                                                         .presentation = backends.presentation,
                                                                         .motion = backends.motion,
                                                                         .content = *wall});
    };
    std::unique_ptr<AppSettingsWindowController> settings;
    const auto makeStore = [&] {
        return std::make_unique<LauncherStore>(
            backends.makeScanner(), LauncherServices{.preferences = preferences,
                                                     .workspace = backends.workspace,
                                                     .launcher = backends.launcher,
                                                     .trash = backends.trash,
                                                     .alerts = alerts,
                                                     .folderWatcher = backends.folderWatcher,
                                                     .makeOverlay = makeOverlay,
                                                     .showSettingsWindow = [&] { settings->showSettingsWindow(); }});
    };
    const auto makeHotKeyController = [&](LauncherStore& store) {
        return std::make_unique<LauncherHotKeyController>(preferences, backends.hotKeyService,
                                                          [&store] { store.toggleOverlay(); });
    };
    const ZelmoApp zelmo({.application = sharedApplication,
                          .renderIcon = [&](int points) { return ZelmoIconFactory::appIcon(points, preferences); },
                          .makeStore = makeStore,
                          .makeHotKeyController = makeHotKeyController});
    settings =
        std::make_unique<AppSettingsWindowController>(SettingsServices{.preferences = preferences,
                                                                       .store = zelmo.launcherStore(),
                                                                       .hotKeyController = zelmo.hotKeyController(),
                                                                       .application = sharedApplication},
                                                      SettingsWindowServices{.mainScreen = backends.mainScreen,
                                                                             .activation = backends.programActivation,
                                                                             .colorScheme = backends.colorScheme,
                                                                             .motion = backends.motion});
    zelmo.appDelegate().applicationDidFinishLaunching();
    instances.listen([&](ApplicationRequest request, const QByteArray& activationToken) {
        backends.startupNotifier.complete(activationToken);
        zelmo.appDelegate().handle(request);
    });
    const auto captureDesktop = [&backends](const QRect& pixels, const QScreen& screen) {
        // A screen's origin is in pixels at every scale.
        return desktopPart(backends.desktopCapture, screen, pixels.translated(-screen.geometry().topLeft()));
    };
    std::optional<MenuBar> menuBar;
    // Of no use before the wall is up, and the buses may be slow.
    QMetaObject::invokeMethod(
        &application,
        [&] {
            backends.presence.start();
            menuBar.emplace(MenuBarServices{.store = zelmo.launcherStore(),
                                            .preferences = preferences,
                                            .application = sharedApplication,
                                            .captureDesktop = captureDesktop,
                                            .reducesMotion = [&] { return backends.motion.reducesMotion(); }});
        },
        Qt::QueuedConnection);
    const int exitCode = QGuiApplication::exec();
    // Before the store, which it shows.
    settings.reset();
    return exitCode;
}
