#include "shell/ZelmoApp.h"

#include "hotkey/LauncherHotKeyController.h"
#include "shell/SharedApplication.h"
#include "shell/ZelmoAppDelegate.h"
#include "support/CatalogFakes.h"
#include "support/FakeHotKeyService.h"

#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

class FakeApplication : public SharedApplication {
public:
    explicit FakeApplication(QStringList& log) : m_log(log) {}
    void setActivationPolicy(ActivationPolicy policy) override {
        QCOMPARE(policy, ActivationPolicy::regular);
        m_log.append(QStringLiteral("policy regular"));
    }
    void setApplicationIconImage(std::function<QImage()> draw) override {
        if (const QImage image = draw(); !image.isNull())
            m_log.append(QStringLiteral("icon %1").arg(image.width()));
    }
    void terminate() override { m_log.append(QStringLiteral("terminate")); }

private:
    QStringList& m_log;
};

// Notes what is written.
class LoggingStorage : public PreferencesStorage {
public:
    explicit LoggingStorage(QStringList& log) : m_log(log) {}
    PreferenceValues read() override {
        m_log.append(QStringLiteral("read preferences"));
        return {};
    }
    bool write(const PreferenceValues& changes) override {
        for (auto it = changes.cbegin(); it != changes.cend(); ++it) {
            const auto* text = std::get_if<QString>(&it.value());
            m_log.append(u"write " + it.key() + u": " + (text ? *text : QString()));
        }
        return true;
    }
    void setOutsideChangeHandler(std::function<void()>) override {}

private:
    QStringList& m_log;
};

// Notes whether anybody wants to know who is in front.
class LoggingWorkspace : public Workspace {
public:
    explicit LoggingWorkspace(QStringList& log) : m_log(log) {}
    std::optional<RunningApplication> frontmostApplication() const override { return std::nullopt; }
    void setActivationHandler(ActivationHandler handler) override {
        if (handler)
            m_log.append(QStringLiteral("track"));
    }
    void activate(const RunningApplication&) override {}

private:
    QStringList& m_log;
};

// The whole program on fakes that share one log.
class Fixture {
public:
    explicit Fixture(FakeHotKeyService::Answer hotKeyAnswer = FakeHotKeyService::Answer::accept, int iconSide = 256) {
        hotKeyService.answer = hotKeyAnswer;
        app = std::make_unique<ZelmoApp>(
            ZelmoAppServices{.application = application,
                             .renderIcon =
                                 [this, iconSide](int points) {
                                     log.append(QStringLiteral("render %1").arg(points));
                                     return iconSide > 0 ? QImage(iconSide, iconSide, QImage::Format_ARGB32) : QImage();
                                 },
                             .makeStore = [this] { return makeStore(); },
                             .makeHotKeyController =
                                 [this](LauncherStore& store) {
                                     return std::make_unique<LauncherHotKeyController>(
                                         preferences, hotKeyService, [&store] { store.toggleOverlay(); });
                                 }});
    }

    QStringList asked() { return std::exchange(log, {}); }
    QString status() const { return preferences.value<PreferenceKey::launcherKeyboardShortcutStatus>(); }
    ZelmoAppDelegate& delegate() const { return app->appDelegate(); }

    QStringList log;
    FakeApplication application{log};
    LoggingStorage storage{log};
    Preferences preferences{storage};
    LoggingWorkspace workspace{log};
    FakeLauncher launcher{log};
    FakeTrash trash{log};
    FakeAlerts alerts{log};
    FakeFolderWatcher folderWatcher;
    FakeHotKeyService hotKeyService{log};
    FakeInstalled installed;
    std::unique_ptr<ZelmoApp> app;

private:
    std::unique_ptr<LauncherStore> makeStore() {
        log.append(QStringLiteral("store"));
        installed.set({found(QStringLiteral("Notes"))});
        std::vector<std::unique_ptr<ApplicationSource>> sources;
        sources.push_back(std::make_unique<FakeSource>(installed));
        return std::make_unique<LauncherStore>(
            AppScanner(std::move(sources), QLocale(QLocale::English)),
            LauncherServices{.preferences = preferences,
                             .workspace = workspace,
                             .launcher = launcher,
                             .trash = trash,
                             .alerts = alerts,
                             .folderWatcher = folderWatcher,
                             .makeOverlay = [this](LauncherStore&) { return std::make_unique<FakeOverlay>(log); },
                             .showSettingsWindow = [this] { log.append(QStringLiteral("settings")); }});
    }
};

QStringList steps(std::initializer_list<const char*> list) {
    QStringList texts;
    for (const char* step : list)
        texts.append(QString::fromLatin1(step));
    return texts;
}

} // namespace

class ZelmoAppTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everythingStartsInItsOrder() {
        Fixture fixture;
        QCOMPARE(fixture.asked(),
                 steps({"read preferences", "render 256", "icon 256", "policy regular", "store", "track"}));
        fixture.delegate().applicationDidFinishLaunching();
        QCOMPARE(fixture.asked(), steps({"policy regular", "install", "register 49 2048 5a4c4d31 1"}));
        QCOMPARE(fixture.status(), QStringLiteral("Option + Space is assigned to Zelmo."));
        QVERIFY(!fixture.app->launcherStore().overlayIsVisible());
        // The disk comes last.
        QTRY_COMPARE(fixture.log,
                     steps({"show", "write launcherKeyboardShortcutStatus: Option + Space is assigned to Zelmo."}));
        QVERIFY(fixture.app->launcherStore().overlayIsVisible());
    }

    void withoutAnIconTheOneOfTheSystemStays() {
        Fixture fixture(FakeHotKeyService::Answer::accept, 0);
        QCOMPARE(fixture.asked(), steps({"read preferences", "render 256", "policy regular", "store", "track"}));
    }

    void theWallOpensWithoutAShortcutToo() {
        Fixture fixture(FakeHotKeyService::Answer::refuse);
        fixture.delegate().applicationDidFinishLaunching();
        QVERIFY(fixture.status().startsWith(QStringLiteral("Could not assign Option + Space.")));
        QTRY_VERIFY(fixture.log.contains(QStringLiteral("show")));
    }

    void theWallOpensWhileTheFirstScanIsStillGoing() {
        Fixture fixture;
        fixture.delegate().applicationDidFinishLaunching();
        {
            const auto heldScans = fixture.installed.holdScans();
            QTRY_VERIFY(fixture.app->launcherStore().overlayIsVisible());
            QTest::qWait(20);
            QVERIFY(fixture.app->launcherStore().apps().isEmpty());
        }
        QTRY_COMPARE(names(fixture.app->launcherStore().apps()), QStringList{QStringLiteral("Notes")});
    }

    void startingItAgainShowsTheWallWhetherOrNotItIsShown() {
        Fixture fixture;
        fixture.asked();
        QVERIFY(fixture.delegate().applicationShouldHandleReopen(false));
        QCOMPARE(fixture.asked(), steps({"show"}));
        QVERIFY(fixture.delegate().applicationShouldHandleReopen(true));
        QCOMPARE(fixture.asked(), steps({"show"}));
        QVERIFY(fixture.app->launcherStore().overlayIsVisible());
    }

    void whatIsAskedFromOutsideIsDone() {
        Fixture fixture;
        QTRY_COMPARE(fixture.installed.scans(), 2);
        fixture.asked();
        fixture.delegate().handle(ApplicationRequest::activate);
        QCOMPARE(fixture.asked(), steps({"show"}));
        fixture.delegate().handle(ApplicationRequest::settings);
        QTRY_COMPARE(fixture.log, steps({"hide", "settings"}));
        fixture.asked();
        fixture.delegate().handle(ApplicationRequest::refresh);
        QTRY_COMPARE(fixture.installed.scans(), 3);
        QCOMPARE(fixture.asked(), QStringList());
        fixture.delegate().handle(ApplicationRequest::quit);
        QCOMPARE(fixture.asked(), steps({"terminate"}));
    }
};

QTEST_GUILESS_MAIN(ZelmoAppTest)
#include "ZelmoAppTest.moc"
