#include "catalog/AppUsage.h"
#include "support/CatalogFakes.h"

#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr std::int64_t ownProcess = 77;

LaunchableApp app(const char* name, const char* ending = ".app") {
    const FileUrl url =
        FileUrl::fromPath(QStringLiteral("/Applications/") + QLatin1StringView(name) + QLatin1StringView(ending));
    return {.id = url, .name = QString::fromLatin1(name), .url = url, .icon = {}};
}

RunningApplication running(const LaunchableApp& launchable) {
    return {.processIdentifier = 5, .bundleUrl = launchable.url};
}

// Usage on a clock that is set by hand.
class Fixture {
public:
    explicit Fixture(const AppUsageRecords& records = {}) {
        if (!records.isEmpty())
            storage.values.insert(QStringLiteral("appUsageRecords"), encodeUsageRecords(records));
        preferences = std::make_unique<Preferences>(storage);
        usage = std::make_unique<AppUsage>(
            *preferences, ownProcess,
            UsageClocks{.now = [this] { return date; }, .seconds = [this] { return seconds; }});
    }

    AppUsageRecord record(const LaunchableApp& launchable) const {
        return usage->records().value(launchable.url.path());
    }
    // As another start of the program would read it.
    AppUsageRecords stored() const {
        const auto data = storage.values.constFind(QStringLiteral("appUsageRecords"));
        return data == storage.values.constEnd() ? AppUsageRecords{}
                                                 : decodeUsageRecords(std::get<QByteArray>(*data)).value();
    }

    double seconds = 1000;
    ReferenceDate date = 800000000;
    FakeStorage storage;
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<AppUsage> usage;
};

} // namespace

class AppUsageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void timeInFrontIsCreditedFromOneSecondOn() {
        Fixture fixture;
        fixture.usage->trackActiveApplication(running(app("Notes")));
        fixture.seconds += 0.999;
        fixture.usage->flushActiveAppUsage();
        QCOMPARE(fixture.record(app("Notes")).activeSeconds, 0.0);
        QVERIFY(fixture.stored().isEmpty());
        // The interval kept growing.
        fixture.seconds += 0.001;
        fixture.usage->flushActiveAppUsage();
        QVERIFY(std::abs(fixture.record(app("Notes")).activeSeconds - 1.0) < 1e-9);
        QCOMPARE(fixture.stored(), fixture.usage->records());
    }

    void aShortVisitIsLost() {
        Fixture fixture;
        fixture.usage->trackActiveApplication(running(app("Notes")));
        fixture.seconds += 0.5;
        fixture.usage->trackActiveApplication(running(app("Chess")));
        fixture.seconds += 0.5;
        fixture.usage->trackActiveApplication(running(app("Notes")));
        fixture.seconds += 0.75;
        fixture.usage->flushActiveAppUsage();
        QCOMPARE(fixture.record(app("Notes")).activeSeconds, 0.0);
        QCOMPARE(fixture.record(app("Chess")).activeSeconds, 0.0);
    }

    void eachApplicationIsCreditedWithItsOwnTime() {
        Fixture fixture;
        fixture.usage->trackActiveApplication(running(app("Notes")));
        fixture.seconds += 30;
        fixture.usage->flushActiveAppUsage();
        fixture.seconds += 12;
        fixture.usage->trackActiveApplication(running(app("mail", ".desktop")));
        fixture.seconds += 4;
        fixture.usage->trackActiveApplication(std::nullopt);
        fixture.seconds += 100;
        fixture.usage->flushActiveAppUsage();
        QCOMPARE(fixture.record(app("Notes")).activeSeconds, 42.0);
        QCOMPARE(fixture.record(app("mail", ".desktop")).activeSeconds, 4.0);
        QCOMPARE(fixture.stored(), fixture.usage->records());
    }

    void theLauncherItselfStopsTheTiming() {
        Fixture fixture;
        fixture.usage->trackActiveApplication(running(app("Notes")));
        fixture.seconds += 10;
        fixture.usage->trackActiveApplication(
            RunningApplication{.processIdentifier = ownProcess, .bundleUrl = app("Zelmo").url});
        fixture.seconds += 10;
        fixture.usage->trackActiveApplication(running(app("Notes")));
        fixture.seconds += 10;
        fixture.usage->flushActiveAppUsage();
        QCOMPARE(fixture.record(app("Notes")).activeSeconds, 20.0);
        QVERIFY(!fixture.usage->records().contains(app("Zelmo").url.path()));
    }

    void whatIsNoApplicationIsNotTimed() {
        Fixture fixture;
        fixture.usage->trackActiveApplication(RunningApplication{.processIdentifier = 9, .bundleUrl = std::nullopt});
        fixture.seconds += 10;
        fixture.usage->trackActiveApplication(running(app("tool", "")));
        fixture.seconds += 10;
        fixture.usage->trackActiveApplication(std::nullopt);
        QVERIFY(fixture.usage->records().isEmpty());
    }

    void aFirstVisitMakesARecordThatIsNotStoredYet() {
        Fixture fixture;
        fixture.usage->trackActiveApplication(running(app("Notes")));
        QCOMPARE(fixture.record(app("Notes")), AppUsageRecord{});
        QVERIFY(fixture.usage->records().contains(app("Notes").url.path()));
        QVERIFY(fixture.stored().isEmpty());
    }

    void aClockThatStandsStillOrRunsBackCreditsNothing() {
        Fixture fixture;
        fixture.usage->trackActiveApplication(running(app("Notes")));
        fixture.seconds -= 100;
        fixture.usage->flushActiveAppUsage();
        QCOMPARE(fixture.record(app("Notes")).activeSeconds, 0.0);
    }

    void aLaunchIsCountedAndStoredAtOnce() {
        Fixture fixture({{app("Notes").url.path(), {.launchCount = 2, .lastLaunchedAt = 1, .activeSeconds = 9}}});
        fixture.usage->recordLaunch(app("Notes"));
        fixture.usage->recordLaunch(app("Chess"));
        QCOMPARE(fixture.record(app("Notes")),
                 (AppUsageRecord{.launchCount = 3, .lastLaunchedAt = 800000000, .activeSeconds = 9}));
        QCOMPARE(fixture.record(app("Chess")), (AppUsageRecord{.launchCount = 1, .lastLaunchedAt = 800000000}));
        QCOMPARE(fixture.stored(), fixture.usage->records());
    }

    void aForgottenApplicationIsStoredNoMore() {
        Fixture fixture({{app("Notes").url.path(), {.launchCount = 2}}});
        fixture.usage->forget(app("Notes").url.path());
        QVERIFY(fixture.usage->records().isEmpty());
        fixture.usage->saveUsageRecords();
        QVERIFY(fixture.stored().isEmpty());
    }

    void summariesSayLaunchesMinutesOrHours_data() {
        QTest::addColumn<int>("launches");
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("summary");
        const auto row = [](const char* name, int launches, double seconds, const char* summary) {
            QTest::newRow(name) << launches << seconds << QString::fromLatin1(summary);
        };
        row("nothing", 0, 0, "");
        row("below both", 0, 4.9, "");
        row("five seconds", 0, 5.0, "0 launches");
        row("one launch", 1, 0, "1 launch");
        row("three launches", 3, 59, "3 launches");
        row("just below a minute", 0, 59.9, "0 launches");
        row("a minute", 0, 60, "1m active");
        row("twelve minutes", 4, 779.9, "12m active");
        row("just below an hour", 0, 3599, "59m active");
        row("an hour", 0, 3600, "1h active");
        row("an hour and a second", 0, 3601, "1h active");
        row("an hour and a minute", 0, 3660, "1h 1m active");
        row("two hours and five minutes", 0, 7500, "2h 5m active");
        row("absurdly long", 0, 1e18, "277777777777777h 46m active");
    }
    void summariesSayLaunchesMinutesOrHours() {
        QFETCH(int, launches);
        QFETCH(double, seconds);
        QFETCH(QString, summary);
        const Fixture fixture({{app("Notes").url.path(), {.launchCount = launches, .activeSeconds = seconds}}});
        QCOMPARE(fixture.usage->usageSummary(app("Notes")).value_or(QString()), summary);
        QVERIFY(!fixture.usage->usageSummary(app("Chess")));
    }
};

QTEST_GUILESS_MAIN(AppUsageTest)
#include "AppUsageTest.moc"
