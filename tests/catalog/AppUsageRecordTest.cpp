#include "catalog/AppUsageRecord.h"
#include "catalog/MostUsedRanking.h"

#include <QDateTime>
#include <QTest>

#include <cmath>
#include <limits>

using namespace zelmo;

namespace {

QString path(int number) {
    return QStringLiteral("/Applications/%1.app").arg(number);
}

QList<LaunchableApp> apps(int count) {
    QList<LaunchableApp> list;
    for (int i = 0; i < count; ++i)
        list.append({.id = FileUrl::fromPath(path(i)),
                     .name = QString::number(i),
                     .url = FileUrl::fromPath(path(i)),
                     .icon = {}});
    return list;
}

// JSON with single quotes for double ones.
QByteArray json(QByteArray text) {
    return text.replace('\'', '"');
}

using Positions = std::vector<qsizetype>;

} // namespace

class AppUsageRecordTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFreshRecordIsUnused() {
        const AppUsageRecord record;
        QCOMPARE(record.launchCount, 0);
        QCOMPARE(record.activeSeconds, 0.0);
        const QDateTime first(QDate(1, 1, 1), QTime(0, 0), Qt::UTC);
        const QDateTime reference(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
        // Two days more than the calendar of today has: the old calendar was two days ahead in its first year.
        QCOMPARE(record.lastLaunchedAt, -86400.0 * static_cast<double>(first.daysTo(reference) + 2));
        QVERIFY(!showsUse(record));
    }

    void recordsReadBackToTheSameBits() {
        AppUsageRecords records;
        records.insert(path(1), {.launchCount = 3, .lastLaunchedAt = 700000000.123456789, .activeSeconds = 0.1 + 0.2});
        records.insert(path(2), {});
        records.insert(QStringLiteral("/Applications/\u00dcber \"quoted\" \\ \uF7E9.app"),
                       {.launchCount = std::numeric_limits<std::int64_t>::max(),
                        .lastLaunchedAt = std::nextafter(1e9, 2e9),
                        .activeSeconds = 5e-324});
        QCOMPARE(decodeUsageRecords(encodeUsageRecords(records)), records);
    }

    void absentActiveSecondsAreZero() {
        const auto records = decodeUsageRecords(json("{'/a.app':{'launchCount':3,'lastLaunchedAt':700000000}}"));
        QVERIFY(records);
        QCOMPARE(records->value(QStringLiteral("/a.app")),
                 (AppUsageRecord{.launchCount = 3, .lastLaunchedAt = 700000000, .activeSeconds = 0}));
    }

    void oneDamagedRecordDamagesAll_data() {
        QTest::addColumn<QByteArray>("json");
        const QByteArray good = json("'/b.app':{'launchCount':1,'lastLaunchedAt':1,'activeSeconds':1}");
        const auto with = [&](const QByteArray& bad) -> QByteArray {
            return json("{'/a.app':") + bad + ',' + good + '}';
        };
        QTest::newRow("no launch count") << with(json("{'lastLaunchedAt':1,'activeSeconds':1}"));
        QTest::newRow("no date") << with(json("{'launchCount':1,'activeSeconds':1}"));
        QTest::newRow("text count") << with(json("{'launchCount':'1','lastLaunchedAt':1}"));
        QTest::newRow("fractional count") << with(json("{'launchCount':1.5,'lastLaunchedAt':1}"));
        QTest::newRow("huge count") << with(json("{'launchCount':1e300,'lastLaunchedAt':1}"));
        QTest::newRow("text date") << with(json("{'launchCount':1,'lastLaunchedAt':'1'}"));
        QTest::newRow("text seconds") << with(json("{'launchCount':1,'lastLaunchedAt':1,'activeSeconds':'1'}"));
        QTest::newRow("no object") << with("7");
        QTest::newRow("an array") << QByteArray("[]");
        QTest::newRow("cut off") << QByteArray(json("{'/a.app':{'launchCount':1,'lastLaun"));
        QTest::newRow("empty") << QByteArray();
    }
    void oneDamagedRecordDamagesAll() {
        QFETCH(QByteArray, json);
        QVERIFY(!decodeUsageRecords(json));
    }

    void fiveSecondsOrOneLaunchShowUse() {
        QVERIFY(showsUse({.launchCount = 1}));
        QVERIFY(!showsUse({.activeSeconds = 4.9}));
        QVERIFY(!showsUse({.activeSeconds = std::nextafter(5.0, 0.0)}));
        QVERIFY(showsUse({.activeSeconds = 5.0}));
    }

    void wholeSecondsRankBeforeLaunchesBeforeTheLatestLaunch() {
        QCOMPARE(mostUsedRanking(apps(2), {{path(0), {.launchCount = 1, .activeSeconds = 100.2}},
                                           {path(1), {.launchCount = 2, .activeSeconds = 100.7}}}),
                 (Positions{1, 0}));
        QCOMPARE(mostUsedRanking(apps(2), {{path(0), {.launchCount = 2, .activeSeconds = 10.2}},
                                           {path(1), {.launchCount = 1, .activeSeconds = 10.9}}}),
                 (Positions{0, 1}));
        QCOMPARE(mostUsedRanking(apps(2), {{path(0), {.launchCount = 9, .activeSeconds = 10.9}},
                                           {path(1), {.launchCount = 1, .activeSeconds = 11.0}}}),
                 (Positions{1, 0}));
        QCOMPARE(mostUsedRanking(apps(2), {{path(0), {.launchCount = 1, .lastLaunchedAt = 5}},
                                           {path(1), {.launchCount = 1, .lastLaunchedAt = 6}}}),
                 (Positions{1, 0}));
    }

    void tiesKeepTheOrderOfNames() {
        AppUsageRecords records;
        for (int i = 0; i < 3; ++i)
            records.insert(path(i), {.launchCount = 2, .lastLaunchedAt = 7, .activeSeconds = 60.0 + i * 0.3});
        QCOMPARE(mostUsedRanking(apps(3), records), (Positions{0, 1, 2}));
    }

    void onlyInstalledAppsWithUseAreRanked() {
        QCOMPARE(mostUsedRanking(apps(3), {{path(1), {.activeSeconds = 4}},
                                           {path(2), {.activeSeconds = 6}},
                                           {path(9), {.activeSeconds = 600}}}),
                 (Positions{2}));
    }

    void absurdDurationsStillRank() {
        QCOMPARE(mostUsedRanking(apps(2), {{path(0), {.activeSeconds = 1e300}}, {path(1), {.activeSeconds = 1e301}}}),
                 (Positions{1, 0}));
    }
};

QTEST_GUILESS_MAIN(AppUsageRecordTest)
#include "AppUsageRecordTest.moc"
