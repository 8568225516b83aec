#include "hotkey/LauncherHotKeyController.h"

#include "preferences/Preferences.h"
#include "preferences/PreferencesStorage.h"
#include "support/FakeHotKeyService.h"

#include <QCoreApplication>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

class MemoryStorage : public PreferencesStorage {
public:
    PreferenceValues read() override { return values; }
    bool write(const PreferenceValues& changes) override {
        values.insert(changes);
        return true;
    }
    void setOutsideChangeHandler(std::function<void()>) override {}

    PreferenceValues values;
};

struct Fixture {
    explicit Fixture(const char* shortcut = nullptr) {
        if (shortcut)
            choose(shortcut);
    }

    void choose(const char* shortcut) {
        preferences.setValue<PreferenceKey::launcherKeyboardShortcut>(QString::fromLatin1(shortcut));
    }
    QString status() const { return preferences.value<PreferenceKey::launcherKeyboardShortcutStatus>(); }

    MemoryStorage storage;
    Preferences preferences{storage};
    QStringList log;
    FakeHotKeyService service{log};
    int toggles = 0;
    LauncherHotKeyController controller{preferences, service, [this] { ++toggles; }};
};

constexpr std::uint32_t ownSignature = 0x5A4C4D31;

} // namespace

class LauncherHotKeyControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsAskedForBeforeItIsConfigured() {
        const Fixture fixture;
        QVERIFY(fixture.log.isEmpty());
        QVERIFY(!fixture.preferences.stored<PreferenceKey::launcherKeyboardShortcutStatus>());
    }

    void withoutAPreferenceOptionSpaceIsTaken() {
        Fixture fixture;
        fixture.controller.configure();
        QCOMPARE(fixture.log, (QStringList{QStringLiteral("install"), QStringLiteral("register 49 2048 5a4c4d31 1")}));
        QCOMPARE(fixture.preferences.stored<PreferenceKey::launcherKeyboardShortcutStatus>(),
                 QStringLiteral("Option + Space is assigned to Zelmo."));
    }

    void theChosenShortcutIsTakenAndTheStatusNamesIt_data() {
        QTest::addColumn<QString>("modifiers");
        QTest::addColumn<QString>("status");
        QTest::newRow("optionSpace") << QStringLiteral("2048")
                                     << QStringLiteral("Option + Space is assigned to Zelmo.");
        QTest::newRow("controlSpace") << QStringLiteral("4096")
                                      << QStringLiteral("Control + Space is assigned to Zelmo.");
        QTest::newRow("commandSpace") << QStringLiteral("256")
                                      << QStringLiteral("Command + Space is assigned to Zelmo.");
    }
    void theChosenShortcutIsTakenAndTheStatusNamesIt() {
        QFETCH(QString, modifiers);
        QFETCH(QString, status);
        Fixture fixture(QTest::currentDataTag());
        fixture.controller.configure();
        QCOMPARE(fixture.log.last(), QStringLiteral("register 49 %1 5a4c4d31 1").arg(modifiers));
        QCOMPARE(fixture.status(), status);
    }

    void anUnknownTextIsTakenForOptionSpaceAndStays() {
        Fixture fixture("controlTab");
        fixture.controller.configure();
        QCOMPARE(fixture.log.last(), QStringLiteral("register 49 2048 5a4c4d31 1"));
        QCOMPARE(fixture.status(), QStringLiteral("Option + Space is assigned to Zelmo."));
        QCOMPARE(fixture.preferences.value<PreferenceKey::launcherKeyboardShortcut>(), QStringLiteral("controlTab"));
    }

    void aPreferenceOfAnotherTypeIsTakenForOptionSpace() {
        MemoryStorage storage;
        storage.values = {{QStringLiteral("launcherKeyboardShortcut"), true}};
        Preferences preferences(storage);
        QStringList log;
        FakeHotKeyService service{log};
        LauncherHotKeyController controller(preferences, service, [] {});
        controller.configure();
        QCOMPARE(log.last(), QStringLiteral("register 49 2048 5a4c4d31 1"));
    }

    void offInstallsTheHandlerAndRegistersNothing() {
        Fixture fixture("off");
        fixture.controller.configure();
        QCOMPARE(fixture.log, QStringList{QStringLiteral("install")});
        QCOMPARE(fixture.status(), QStringLiteral("Shortcut is off."));
    }

    void switchingToOffLetsTheShortcutGo() {
        Fixture fixture("commandSpace");
        fixture.controller.configure();
        fixture.choose("off");
        fixture.log.clear();
        fixture.controller.configure();
        fixture.controller.configure();
        QCOMPARE(fixture.log, QStringList{QStringLiteral("unregister 1")});
        QCOMPARE(fixture.status(), QStringLiteral("Shortcut is off."));
    }

    void configuringAgainInstallsOneHandlerAndReleasesFirst() {
        Fixture fixture;
        for (int i = 0; i < 3; ++i)
            fixture.controller.configure();
        const QString registers = QStringLiteral("register 49 2048 5a4c4d31 1");
        QCOMPARE(fixture.log, (QStringList{QStringLiteral("install"), registers, QStringLiteral("unregister 1"),
                                           registers, QStringLiteral("unregister 2"), registers}));
    }

    void aRefusalIsToldAndLeavesTheChoice() {
        Fixture fixture("controlSpace");
        fixture.service.answer = FakeHotKeyService::Answer::refuse;
        fixture.controller.configure();
        QCOMPARE(fixture.status(), QStringLiteral("Could not assign Control + Space. Quit the old launcher or remove "
                                                  "its shortcut, then try again."));
        QCOMPARE(fixture.preferences.value<PreferenceKey::launcherKeyboardShortcut>(), QStringLiteral("controlSpace"));
    }

    void afterARefusalNothingIsReleasedAndTheSameIsTriedAgain() {
        Fixture fixture;
        fixture.controller.configure();
        fixture.service.answer = FakeHotKeyService::Answer::refuse;
        fixture.controller.configure();
        fixture.service.answer = FakeHotKeyService::Answer::accept;
        fixture.log.clear();
        fixture.controller.configure();
        QCOMPARE(fixture.log, QStringList{QStringLiteral("register 49 2048 5a4c4d31 1")});
        QCOMPARE(fixture.status(), QStringLiteral("Option + Space is assigned to Zelmo."));
    }

    void aPressTogglesAfterTheHandlerHasReturned() {
        Fixture fixture;
        fixture.controller.configure();
        fixture.service.press({ownSignature, 1});
        fixture.service.press({ownSignature, 1});
        QCOMPARE(fixture.toggles, 0);
        QCoreApplication::processEvents();
        QCOMPARE(fixture.toggles, 2);
    }

    void anotherSignatureIsSwallowed() {
        Fixture fixture;
        fixture.controller.configure();
        fixture.service.press({ownSignature + 1, 1});
        fixture.service.press({0, 1});
        QCoreApplication::processEvents();
        QCOMPARE(fixture.toggles, 0);
    }

    void anotherIdTogglesToo() {
        Fixture fixture;
        fixture.controller.configure();
        fixture.service.press({ownSignature, 7});
        QCoreApplication::processEvents();
        QCOMPARE(fixture.toggles, 1);
    }

    void aPressThatTheControllerDoesNotLiveToSeeTogglesNothing() {
        MemoryStorage storage;
        Preferences preferences(storage);
        QStringList log;
        FakeHotKeyService service{log};
        int toggles = 0;
        {
            LauncherHotKeyController controller(preferences, service, [&toggles] { ++toggles; });
            controller.configure();
            service.press({ownSignature, 1});
        }
        service.press({ownSignature, 1});
        QCoreApplication::processEvents();
        QCOMPARE(toggles, 0);
        QVERIFY(!log.last().startsWith(QStringLiteral("unregister")));
    }
};

QTEST_GUILESS_MAIN(LauncherHotKeyControllerTest)
#include "LauncherHotKeyControllerTest.moc"
