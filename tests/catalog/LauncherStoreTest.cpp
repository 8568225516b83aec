#include "catalog/AppUsageRecord.h"
#include "catalog/RescanTimer.h"
#include "support/CatalogFakes.h"

#include <QSignalSpy>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

QList<FoundApplication> fewApplications() {
    return {found(QStringLiteral("Safari"), "public.app-category.productivity"),
            found(QStringLiteral("Notes"), "public.app-category.productivity"),
            found(QStringLiteral("Chat"), "public.app-category.social-networking"), found(QStringLiteral("Big saf"))};
}

PreferenceValues withUsage(const AppUsageRecords& records) {
    return {{QStringLiteral("appUsageRecords"), encodeUsageRecords(records)}};
}

QString path(const char* name) {
    return QStringLiteral("/Applications/%1.app").arg(QLatin1StringView(name));
}

} // namespace

class LauncherStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFreshStoreIsEmptyAndScansOnceConstructionIsOver() {
        StoreFixture fixture(fewApplications());
        const LauncherStore& store = *fixture.store;
        QVERIFY(store.apps().isEmpty());
        QCOMPARE(store.selectedCategory(), AppCategory::all);
        QVERIFY(!store.showsMostUsed());
        QCOMPARE(store.searchText(), QString());
        QVERIFY(!store.overlayIsVisible());
        QVERIFY(!store.isEditingApps());
        QVERIFY(store.selectedAppIDs().isEmpty());
        QCOMPARE(fixture.installed.scans(), 0);
        QTRY_COMPARE(store.apps().size(), 4);
        QCOMPARE(fixture.installed.scans(), 1);
        QCOMPARE(fixture.overlaysMade, 0);
    }

    void whatCameBetweenTheScanAndTheWatchIsFoundByAnotherScan() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        QCOMPARE(fixture.folderWatcher.folders.size(), 1);
        fixture.installed.set({found(QStringLiteral("Chess"))});
        QTRY_COMPARE(names(fixture.store->apps()), QStringList{QStringLiteral("Chess")});
        QCOMPARE(fixture.installed.scans(), 2);
        // The folders are the same, so it ends there.
        QTest::qWait(static_cast<int>(2 * RescanTimer::quietTime.count()));
        QCOMPARE(fixture.installed.scans(), 2);
    }

    void appsStandInTheOrderOfTheirNames() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(names(fixture.store->apps()), (QStringList{QStringLiteral("Big saf"), QStringLiteral("Chat"),
                                                                QStringLiteral("Notes"), QStringLiteral("Safari")}));
    }

    void hiddenPathsAreLeftOutOfEveryScan() {
        StoreFixture fixture(fewApplications(), {{QStringLiteral("hiddenAppPaths"), QStringList{path("Notes")}}});
        QTRY_COMPARE(fixture.store->apps().size(), 3);
        QVERIFY(!names(fixture.store->apps()).contains(QStringLiteral("Notes")));
    }

    void refreshPublishesWhatIsThereNow() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.installed.set({found(QStringLiteral("Chess"))});
        fixture.store->refresh();
        QTRY_COMPARE(names(fixture.store->apps()), QStringList{QStringLiteral("Chess")});
    }

    void overlappingRefreshesAllRun() {
        StoreFixture fixture(fewApplications());
        fixture.waitForRest();
        const int before = fixture.installed.scans();
        for (int i = 0; i < 20; ++i)
            fixture.store->refresh();
        QTRY_COMPARE(fixture.installed.scans(), before + 20);
    }

    void aStoreCanGoWhileItScans() {
        for (int i = 0; i < 50; ++i) {
            StoreFixture fixture(fewApplications());
            for (int j = 0; j < 5; ++j)
                fixture.store->refresh();
        }
    }

    void observersHearBeforeAndAfterEachChange() {
        StoreFixture fixture;
        LauncherStore& store = *fixture.store;
        QStringList heard;
        connect(&store, &LauncherStore::willChange, this,
                [&] { heard.append(QStringLiteral("before ") + store.searchText()); });
        connect(&store, &LauncherStore::searchTextChanged, this,
                [&] { heard.append(QStringLiteral("after ") + store.searchText()); });
        store.setSearchText(QStringLiteral("a"));
        store.setSearchText(QStringLiteral("a"));
        QCOMPARE(heard, (QStringList{QStringLiteral("before "), QStringLiteral("after a")}));
    }

    void everyPublishedPropertyAnnouncesItsChange() {
        StoreFixture fixture(fewApplications());
        LauncherStore& store = *fixture.store;
        QSignalSpy before(&store, &LauncherStore::willChange);
        QTRY_COMPARE(store.apps().size(), 4);
        QCOMPARE(before.count(), 1);
        store.setSelectedCategory(AppCategory::social);
        store.setShowsMostUsed(true);
        store.setSearchText(QStringLiteral("x"));
        store.setIsEditingApps(true);
        store.toggleSelection(store.apps().first());
        store.showOverlay();
        QCOMPARE(before.count(), 7);
    }

    void aCategoryNarrowsTheList() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->setSelectedCategory(AppCategory::productivity);
        QCOMPARE(names(fixture.store->visibleApps()), (QStringList{QStringLiteral("Notes"), QStringLiteral("Safari")}));
        fixture.store->setSelectedCategory(AppCategory::other);
        QCOMPARE(names(fixture.store->visibleApps()), QStringList{QStringLiteral("Big saf")});
        fixture.store->setSelectedCategory(AppCategory::reading);
        QVERIFY(fixture.store->visibleApps().isEmpty());
    }

    void blanksAloneDoNotNarrow() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->setSearchText(QStringLiteral(" \t\n "));
        QCOMPARE(fixture.store->visibleApps().size(), 4);
    }

    void blanksAroundAWordBelongToIt() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->setSearchText(QStringLiteral("saf"));
        QCOMPARE(names(fixture.store->visibleApps()),
                 (QStringList{QStringLiteral("Big saf"), QStringLiteral("Safari")}));
        fixture.store->setSearchText(QStringLiteral(" saf"));
        QCOMPARE(names(fixture.store->visibleApps()), QStringList{QStringLiteral("Big saf")});
        fixture.store->setSearchText(QStringLiteral("saf "));
        QVERIFY(fixture.store->visibleApps().isEmpty());
    }

    void searchDisregardsCase() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->setSearchText(QStringLiteral("NOTES"));
        QCOMPARE(names(fixture.store->visibleApps()), QStringList{QStringLiteral("Notes")});
    }

    void onlyNamesAreSearched() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        for (const char* text : {"Applications", ".app", "Social", "Productive"}) {
            fixture.store->setSearchText(QString::fromLatin1(text));
            QVERIFY2(fixture.store->visibleApps().isEmpty(), text);
        }
    }

    void searchAndCategoryNarrowTogether() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->setSelectedCategory(AppCategory::productivity);
        fixture.store->setSearchText(QStringLiteral("saf"));
        QCOMPARE(names(fixture.store->visibleApps()), QStringList{QStringLiteral("Safari")});
    }

    void searchFollowsANewCatalog() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->setSearchText(QStringLiteral("chess"));
        QVERIFY(fixture.store->visibleApps().isEmpty());
        fixture.installed.set({found(QStringLiteral("Arcade")), found(QStringLiteral("Chess"))});
        fixture.store->refresh();
        QTRY_COMPARE(names(fixture.store->visibleApps()), QStringList{QStringLiteral("Chess")});
    }

    void mostUsedDisregardsTheCategory() {
        StoreFixture fixture(fewApplications(), withUsage({{path("Notes"), {.launchCount = 1}},
                                                           {path("Safari"), {.launchCount = 3}},
                                                           {path("Chat"), {.activeSeconds = 4.9}}}));
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->setSelectedCategory(AppCategory::social);
        fixture.store->setShowsMostUsed(true);
        QCOMPARE(names(fixture.store->visibleApps()), (QStringList{QStringLiteral("Safari"), QStringLiteral("Notes")}));
        fixture.store->setSearchText(QStringLiteral("not"));
        QCOMPARE(names(fixture.store->visibleApps()), QStringList{QStringLiteral("Notes")});
    }

    void damagedUsageRecordsStartEmpty() {
        StoreFixture fixture(fewApplications(), {{QStringLiteral("appUsageRecords"), QByteArray("{\"/a\":3}")}});
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->setShowsMostUsed(true);
        QVERIFY(fixture.store->visibleApps().isEmpty());
    }

    void togglingTwiceLeavesTheSelectionAsItWas() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        const LaunchableApp app = fixture.store->apps()[1];
        fixture.store->toggleSelection(app);
        QCOMPARE(fixture.store->selectedAppIDs(), QSet<FileUrl>{app.id});
        fixture.store->toggleSelection(app);
        QVERIFY(fixture.store->selectedAppIDs().isEmpty());
        QVERIFY(!fixture.store->isEditingApps());
    }

    void aLaunchOpensTheApplicationAndHidesTheWall() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->showOverlay();
        fixture.store->launch(fixture.store->apps()[2]);
        QCOMPARE(fixture.log, (QStringList{QStringLiteral("show"), u"open " + path("Notes"), QStringLiteral("hide")}));
        QVERIFY(!fixture.store->overlayIsVisible());
    }

    void aLaunchCountsInMostUsedAtOnce() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->launch(fixture.store->apps()[2]);
        fixture.store->setShowsMostUsed(true);
        QCOMPARE(names(fixture.store->visibleApps()), QStringList{QStringLiteral("Notes")});
        const auto stored =
            decodeUsageRecords(std::get<QByteArray>(fixture.storage.values.value(QStringLiteral("appUsageRecords"))));
        QCOMPARE(stored->value(path("Notes")).launchCount, 1);
    }

    void nothingIsLaunchedWhileAppsAreEdited() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->showOverlay();
        fixture.store->setIsEditingApps(true);
        fixture.store->launch(fixture.store->apps()[2]);
        QCOMPARE(fixture.log, QStringList{QStringLiteral("show")});
        QVERIFY(!fixture.storage.values.contains(QStringLiteral("appUsageRecords")));
        QVERIFY(fixture.store->overlayIsVisible());
    }

    void hidingLeavesEditModeAndClearsTheSelection() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        fixture.store->showOverlay();
        fixture.store->showOverlay();
        fixture.store->setIsEditingApps(true);
        fixture.store->toggleSelection(fixture.store->apps().first());
        fixture.store->hideOverlay();
        QVERIFY(!fixture.store->isEditingApps());
        QVERIFY(fixture.store->selectedAppIDs().isEmpty());
        QVERIFY(!fixture.store->overlayIsVisible());
        QCOMPARE(fixture.overlaysMade, 1);
        QCOMPARE(fixture.log, (QStringList{QStringLiteral("show"), QStringLiteral("show"), QStringLiteral("hide")}));
    }

    void toggleShowsAndHides() {
        StoreFixture fixture;
        fixture.store->toggleOverlay();
        QVERIFY(fixture.store->overlayIsVisible());
        fixture.store->toggleOverlay();
        QVERIFY(!fixture.store->overlayIsVisible());
        QCOMPARE(fixture.log, (QStringList{QStringLiteral("show"), QStringLiteral("hide")}));
    }

    void aBurstOfChangesInTheFoldersIsOneScan() {
        StoreFixture fixture(fewApplications());
        fixture.waitForRest();
        const int before = fixture.installed.scans();
        fixture.installed.set({found(QStringLiteral("Chess"))});
        for (int i = 0; i < 10; ++i)
            fixture.folderWatcher.change();
        QCOMPARE(fixture.installed.scans(), before);
        QTRY_COMPARE(names(fixture.store->apps()), QStringList{QStringLiteral("Chess")});
        QCOMPARE(fixture.installed.scans(), before + 1);
    }

    void foldersThatNeverRestAreScannedAllTheSame() {
        StoreFixture fixture(fewApplications());
        fixture.waitForRest();
        const int before = fixture.installed.scans();
        QTimer restless;
        connect(&restless, &QTimer::timeout, this, [&] { fixture.folderWatcher.change(); });
        restless.start(20);
        QTRY_COMPARE_WITH_TIMEOUT(fixture.installed.scans(), before + 2, 20000);
    }

    void anUnchangedScanIsNotPublished() {
        StoreFixture fixture(fewApplications());
        QTRY_COMPARE(fixture.store->apps().size(), 4);
        QSignalSpy changed(fixture.store.get(), &LauncherStore::appsChanged);
        fixture.waitForRest();
        fixture.store->refresh();
        QTRY_COMPARE(fixture.installed.scans(), 3);
        fixture.installed.set({});
        fixture.store->refresh();
        QTRY_VERIFY(fixture.store->apps().isEmpty());
        QCOMPARE(changed.count(), 1);
    }
};

QTEST_GUILESS_MAIN(LauncherStoreTest)
#include "LauncherStoreTest.moc"
