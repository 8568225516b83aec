#include "support/CatalogFakes.h"

#include <QCoreApplication>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

RunningApplication running(std::int64_t process) {
    return {.processIdentifier = process, .bundleUrl = std::nullopt};
}

// A store with one application, Notes.
struct Fixture : StoreFixture {
    Fixture() : StoreFixture({found(QStringLiteral("Notes"))}) {
        workspace.frontmost = running(41);
        waitForRest();
    }
    // The log since this was last asked.
    QStringList asked() { return std::exchange(log, {}); }
};

QStringList steps(const char* text) {
    return QString::fromLatin1(text).split(QStringLiteral(", "));
}

} // namespace

// Which application has the focus after the wall has gone, for each way to hide it.
class OverlayFocusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void hidingGivesTheFocusBackOnceTheWallIsGone() {
        Fixture fixture;
        fixture.store->showOverlay();
        fixture.store->hideOverlay();
        QCOMPARE(fixture.asked(), steps("show, hide, activate 41"));
        // It is forgotten: another hiding gives nobody the focus.
        fixture.store->hideOverlay();
        QCOMPARE(fixture.asked(), steps("hide"));
    }

    void togglingOffGivesNobodyTheFocus() {
        Fixture fixture;
        fixture.store->toggleOverlay();
        fixture.store->toggleOverlay();
        QCOMPARE(fixture.asked(), steps("show, hide"));
        fixture.store->hideOverlay();
        QCOMPARE(fixture.asked(), steps("hide"));
    }

    void aLaunchedApplicationTakesTheFocusItself() {
        Fixture fixture;
        fixture.store->showOverlay();
        fixture.store->launch(fixture.store->apps()[0]);
        QCOMPARE(fixture.asked(), steps("show, open /Applications/Notes.app, hide"));
        fixture.store->hideOverlay();
        QCOMPARE(fixture.asked(), steps("hide"));
    }

    void theSettingsComeOnATurnOfTheirOwnOnceTheWallIsGone() {
        Fixture fixture;
        fixture.store->showOverlay();
        fixture.store->setIsEditingApps(true);
        fixture.store->toggleSelection(fixture.store->apps()[0]);
        fixture.store->showSettings();
        QCOMPARE(fixture.asked(), steps("show, hide"));
        QVERIFY(!fixture.store->overlayIsVisible());
        QVERIFY(!fixture.store->isEditingApps());
        QVERIFY(fixture.store->selectedAppIDs().isEmpty());
        QTRY_COMPARE(fixture.log, steps("settings"));
        fixture.asked();
        fixture.store->hideOverlay();
        QCOMPARE(fixture.asked(), steps("hide"));
    }

    void everyWayToHiddenLeavesEditMode_data() {
        QTest::addColumn<int>("way");
        for (const char* way : {"toggle", "hide", "settings"})
            QTest::newRow(way) << static_cast<int>(way[0]);
    }
    void everyWayToHiddenLeavesEditMode() {
        QFETCH(int, way);
        Fixture fixture;
        LauncherStore& store = *fixture.store;
        store.showOverlay();
        store.setIsEditingApps(true);
        store.toggleSelection(store.apps()[0]);
        if (way == 't')
            store.toggleOverlay();
        else if (way == 'h')
            store.hideOverlay();
        else
            store.showSettings();
        QVERIFY(!store.overlayIsVisible());
        QVERIFY(!store.isEditingApps());
        QVERIFY(store.selectedAppIDs().isEmpty());
    }

    void showingAShownWallKeepsWhoHadTheFocusFirst() {
        Fixture fixture;
        fixture.store->showOverlay();
        fixture.workspace.frontmost = running(42);
        fixture.store->showOverlay();
        fixture.store->hideOverlay();
        QCOMPARE(fixture.asked(), steps("show, show, hide, activate 41"));
    }

    void showingFromThisProgramItselfKeepsWhoHadTheFocusFirst() {
        Fixture fixture;
        fixture.store->showOverlay();
        // Something hides the window without the store's doing; the program's own menu then shows it again.
        fixture.store->hideOverlay();
        fixture.asked();
        fixture.workspace.frontmost = running(QCoreApplication::applicationPid());
        fixture.store->showOverlay();
        fixture.store->hideOverlay();
        QCOMPARE(fixture.asked(), steps("show, hide"));

        fixture.workspace.frontmost = running(43);
        fixture.store->showOverlay();
        fixture.workspace.frontmost = running(QCoreApplication::applicationPid());
        fixture.store->showOverlay();
        fixture.store->hideOverlay();
        QCOMPARE(fixture.asked(), steps("show, show, hide, activate 43"));
    }

    void whenNothingIsInFrontNobodyGetsTheFocus() {
        Fixture fixture;
        fixture.workspace.frontmost.reset();
        fixture.store->showOverlay();
        fixture.store->hideOverlay();
        QCOMPARE(fixture.asked(), steps("show, hide"));
    }

    void timeInFrontIsCountedFromConstructionOn() {
        StoreFixture fixture({found(QStringLiteral("Notes"))});
        QTRY_COMPARE(fixture.store->apps().size(), 1);
        const RunningApplication notes{.processIdentifier = 5, .bundleUrl = fixture.store->apps()[0].url};
        fixture.workspace.activated(notes);
        // Tracked on a turn of its own.
        fixture.seconds += 100;
        QCoreApplication::processEvents();
        fixture.seconds += 60;
        QTimer* timer = fixture.store->findChild<QTimer*>(QStringLiteral("usageFlushTimer"));
        QVERIFY(timer);
        QVERIFY(timer->isActive());
        QVERIFY(!timer->isSingleShot());
        QCOMPARE(timer->intervalAsDuration(), std::chrono::seconds(30));
        QVERIFY(QMetaObject::invokeMethod(timer, "timeout"));
        QCOMPARE(fixture.store->usageSummary(fixture.store->apps()[0]), QStringLiteral("1m active"));
        // The screen is locked: that is nobody's time.
        fixture.workspace.activated(std::nullopt);
        QCoreApplication::processEvents();
        fixture.seconds += 3600;
        QVERIFY(QMetaObject::invokeMethod(timer, "timeout"));
        QCOMPARE(fixture.store->usageSummary(fixture.store->apps()[0]), QStringLiteral("1m active"));
    }

    void theApplicationInFrontAtTheStartIsTimed() {
        StoreFixture fixture(
            {found(QStringLiteral("Notes"))}, {}, QLocale(QLocale::English),
            RunningApplication{.processIdentifier = 5, .bundleUrl = found(QStringLiteral("Notes")).url});
        QTRY_COMPARE(fixture.store->apps().size(), 1);
        fixture.seconds += 61;
        fixture.workspace.activated(std::nullopt);
        QCoreApplication::processEvents();
        QCOMPARE(fixture.store->usageSummary(fixture.store->apps()[0]), QStringLiteral("1m active"));
    }
};

QTEST_GUILESS_MAIN(OverlayFocusTest)
#include "OverlayFocusTest.moc"
