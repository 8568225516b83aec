#include "catalog/AppUsageRecord.h"
#include "support/CatalogFakes.h"

#include <QSignalSpy>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

QString path(const char* name) {
    return QStringLiteral("/Applications/%1.app").arg(QLatin1StringView(name));
}

// A wall in edit mode with Chess, Mail and Notes, each of them used.
struct Fixture : StoreFixture {
    Fixture()
        : StoreFixture({found(QStringLiteral("Chess")), found(QStringLiteral("Mail")), found(QStringLiteral("Notes"))},
                       {{QStringLiteral("appUsageRecords"), encodeUsageRecords({{path("Chess"), {.launchCount = 1}},
                                                                                {path("Mail"), {.launchCount = 2}},
                                                                                {path("Notes"), {.launchCount = 3}}})},
                        {QStringLiteral("hiddenAppPaths"), QStringList{path("Old")}}}) {
        waitForRest();
        store->setIsEditingApps(true);
    }

    void select(std::initializer_list<const char*> names) const {
        for (const char* name : names) {
            const FileUrl url = FileUrl::fromPath(path(name));
            store->toggleSelection(LaunchableApp{.id = url, .name = {}, .url = url, .icon = {}});
        }
    }
    QStringList storedHidden() const {
        return std::get<QStringList>(storage.values.value(QStringLiteral("hiddenAppPaths")));
    }
    QStringList storedUsed() const {
        const auto records =
            decodeUsageRecords(std::get<QByteArray>(storage.values.value(QStringLiteral("appUsageRecords"))));
        QStringList paths = records->keys();
        paths.sort();
        return paths;
    }
};

} // namespace

class UninstallTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingSelectedAsksNothing() {
        Fixture fixture;
        fixture.store->hideSelectedAppsFromLauncher();
        QVERIFY(fixture.log.isEmpty());
        QVERIFY(fixture.store->isEditingApps());
    }

    void oneAppIsAskedForByName() {
        Fixture fixture;
        fixture.alerts.answer = 1;
        fixture.select({"Chess"});
        fixture.store->hideSelectedAppsFromLauncher();
        QCOMPARE(fixture.alerts.shown.size(), 1);
        const Alert& alert = fixture.alerts.shown[0];
        QCOMPARE(alert.style, AlertStyle::warning);
        QCOMPARE(alert.message, QStringLiteral("Uninstall Chess?"));
        QCOMPARE(alert.informativeText,
                 QStringLiteral("Zelmo will move the selected app to Trash. You can restore from Trash if needed."));
        QCOMPARE(alert.buttons, (QStringList{QStringLiteral("Move to Trash"), QStringLiteral("Cancel")}));
    }

    void moreAppsAreAskedForByTheirNumber() {
        Fixture fixture;
        fixture.alerts.answer = 1;
        fixture.select({"Notes", "Chess"});
        fixture.store->hideSelectedAppsFromLauncher();
        const Alert& alert = fixture.alerts.shown[0];
        QCOMPARE(alert.message, QStringLiteral("Uninstall 2 apps?"));
        QCOMPARE(alert.informativeText,
                 QStringLiteral("Zelmo will move the selected apps to Trash. You can restore from Trash if needed."));
    }

    void anyAnswerButTheFirstChangesNothing_data() {
        QTest::addColumn<qsizetype>("answer");
        QTest::newRow("cancel") << qsizetype(1);
        QTest::newRow("unknown") << qsizetype(-1);
    }
    void anyAnswerButTheFirstChangesNothing() {
        QFETCH(qsizetype, answer);
        Fixture fixture;
        fixture.alerts.answer = answer;
        fixture.select({"Notes", "Chess"});
        fixture.store->hideSelectedAppsFromLauncher();
        QCOMPARE(fixture.log, QStringList{QStringLiteral("alert Uninstall 2 apps?")});
        QCOMPARE(fixture.store->apps().size(), 3);
        QVERIFY(fixture.store->isEditingApps());
        QCOMPARE(fixture.store->selectedAppIDs().size(), 2);
        QCOMPARE(fixture.storedHidden(), QStringList{path("Old")});
        QCOMPARE(fixture.storedUsed().size(), 3);
    }

    void appsGoToTheTrashInTheirOrderAndAreForgotten() {
        Fixture fixture;
        QSignalSpy changes(fixture.store.get(), &LauncherStore::willChange);
        fixture.select({"Notes", "Chess"});
        const int scans = fixture.installed.scans();
        fixture.store->hideSelectedAppsFromLauncher();
        QCOMPARE(fixture.log, (QStringList{QStringLiteral("alert Uninstall 2 apps?"), u"trash " + path("Chess"),
                                           u"trash " + path("Notes")}));
        QCOMPARE(names(fixture.store->apps()), QStringList{QStringLiteral("Mail")});
        QCOMPARE(fixture.storedHidden(), (QStringList{path("Chess"), path("Notes"), path("Old")}));
        QCOMPARE(fixture.storedUsed(), QStringList{path("Mail")});
        QVERIFY(fixture.store->selectedAppIDs().isEmpty());
        QVERIFY(!fixture.store->isEditingApps());
        QCOMPARE(fixture.installed.scans(), scans);
    }

    void whatIsInTheTrashStaysAwayWhenItsPathComesBack() {
        Fixture fixture;
        fixture.select({"Chess"});
        fixture.store->hideSelectedAppsFromLauncher();
        fixture.installed.set({found(QStringLiteral("Chess")), found(QStringLiteral("Zip"))});
        fixture.store->refresh();
        QTRY_COMPARE(names(fixture.store->apps()), QStringList{QStringLiteral("Zip")});
    }

    void aScanThatIsUnderWayBringsNothingBack() {
        Fixture fixture;
        fixture.select({"Chess"});
        fixture.store->refresh();
        fixture.store->hideSelectedAppsFromLauncher();
        QVERIFY(fixture.waitForRest());
        QCOMPARE(names(fixture.store->apps()), (QStringList{QStringLiteral("Mail"), QStringLiteral("Notes")}));
    }

    void aRefusedAppIsNamedAndStaysSelected() {
        Fixture fixture;
        fixture.trash.refused = {path("Mail")};
        fixture.select({"Chess", "Mail", "Notes"});
        fixture.store->hideSelectedAppsFromLauncher();
        QCOMPARE(fixture.log, (QStringList{QStringLiteral("alert Uninstall 3 apps?"), u"trash " + path("Chess"),
                                           u"trash " + path("Mail"), u"trash " + path("Notes"),
                                           QStringLiteral("alert Could not uninstall Mail")}));
        const Alert& alert = fixture.alerts.shown[1];
        QCOMPARE(alert.style, AlertStyle::informational);
        QCOMPARE(alert.informativeText,
                 QStringLiteral("macOS may block removing system apps or apps that need administrator permission."));
        QCOMPARE(alert.buttons, QStringList{QStringLiteral("OK")});
        QCOMPARE(names(fixture.store->apps()), QStringList{QStringLiteral("Mail")});
        QVERIFY(fixture.store->isEditingApps());
        QCOMPARE(fixture.store->selectedAppIDs(), QSet<FileUrl>{FileUrl::fromPath(path("Mail"))});
        QCOMPARE(fixture.storedHidden(), (QStringList{path("Chess"), path("Notes"), path("Old")}));
        QCOMPARE(fixture.storedUsed(), QStringList{path("Mail")});
    }

    void moreRefusedAppsAreCounted() {
        Fixture fixture;
        fixture.trash.refused = {path("Mail"), path("Notes")};
        fixture.select({"Chess", "Mail", "Notes"});
        fixture.store->hideSelectedAppsFromLauncher();
        QCOMPARE(fixture.alerts.shown[1].message, QStringLiteral("Could not uninstall 2 apps"));
    }

    void whenNothingWasMovedNothingIsForgotten() {
        Fixture fixture;
        fixture.trash.refused = {path("Mail")};
        fixture.select({"Mail"});
        fixture.store->hideSelectedAppsFromLauncher();
        QCOMPARE(fixture.store->apps().size(), 3);
        QVERIFY(fixture.store->isEditingApps());
        QCOMPARE(fixture.storedHidden(), QStringList{path("Old")});
        QCOMPARE(fixture.storedUsed().size(), 3);
    }

    void nothingShowsTogglesOrAsksWhileTheUserIsAsked() {
        Fixture fixture;
        fixture.store->showOverlay();
        fixture.select({"Chess"});
        fixture.alerts.meanwhile = [&] {
            fixture.store->toggleOverlay();
            fixture.store->showOverlay();
            fixture.store->hideSelectedAppsFromLauncher();
        };
        fixture.store->hideSelectedAppsFromLauncher();
        QCOMPARE(fixture.log, (QStringList{QStringLiteral("show"), QStringLiteral("alert Uninstall Chess?"),
                                           u"trash " + path("Chess")}));
        QVERIFY(fixture.store->overlayIsVisible());
        fixture.store->toggleOverlay();
        QVERIFY(!fixture.store->overlayIsVisible());
    }

    void editModeEndsWhenNothingIsLeftInSight() {
        Fixture fixture;
        fixture.trash.refused = {path("Mail")};
        fixture.select({"Chess", "Mail"});
        // The refused one stays selected, but the search shows only what is gone now.
        fixture.store->setSearchText(QStringLiteral("chess"));
        fixture.store->hideSelectedAppsFromLauncher();
        QVERIFY(fixture.store->visibleApps().isEmpty());
        QVERIFY(!fixture.store->isEditingApps());
        QVERIFY(fixture.store->selectedAppIDs().isEmpty());
    }

    void restoringForgetsWhatIsHiddenAndScans() {
        Fixture fixture;
        fixture.select({"Chess"});
        fixture.store->hideSelectedAppsFromLauncher();
        QCOMPARE(fixture.store->apps().size(), 2);
        const int scans = fixture.installed.scans();
        fixture.store->restoreHiddenApps();
        QVERIFY(fixture.storedHidden().isEmpty());
        QTRY_COMPARE(fixture.store->apps().size(), 3);
        QCOMPARE(fixture.installed.scans(), scans + 1);
        // Its use is forgotten for good.
        QVERIFY(!fixture.store->usageSummary(fixture.store->apps()[0]));
    }
};

QTEST_GUILESS_MAIN(UninstallTest)
#include "UninstallTest.moc"
