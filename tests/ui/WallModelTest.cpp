#include "ui/WallModel.h"
#include "support/CatalogFakes.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

QStringList rows(const WallModel& model) {
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row)
        list.append(model.data(model.index(row), WallModel::NameRole).toString());
    return list;
}

} // namespace

class WallModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itFollowsScansFiltersAndSearchesWithoutAReset() {
        QList<FoundApplication> installed;
        QRandomGenerator random(3);
        for (int i = 0; i < 120; ++i)
            installed.append(found(QStringLiteral("App %1").arg(random.bounded(100000)),
                                   i % 3 ? "public.app-category.games" : nullptr));
        StoreFixture fixture(installed, {{QStringLiteral("appUsageRecords"),
                                          encodeUsageRecords({{installed[4].url.path(), {.launchCount = 1}},
                                                              {installed[9].url.path(), {.launchCount = 5}},
                                                              {installed[2].url.path(), {.launchCount = 3}}})}});
        LauncherStore& store = *fixture.store;
        WallModel model(store);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);

        QTRY_COMPARE(model.rowCount(), 120);
        for (const char* text : {"1", "12", "1", "", "9", "App", " ", "zzz", ""}) {
            store.setSearchText(QString::fromLatin1(text));
            QCOMPARE(rows(model), names(store.visibleApps()));
        }
        for (const AppCategory category : allCategories) {
            store.setSelectedCategory(category);
            QCOMPARE(rows(model), names(store.visibleApps()));
        }
        store.setShowsMostUsed(true);
        QCOMPARE(rows(model), names(store.visibleApps()));
        QCOMPARE(model.rowCount(), 3);
        store.setShowsMostUsed(false);
        store.setSelectedCategory(AppCategory::all);
        installed.remove(10, 30);
        installed.append(found(QStringLiteral("Newcomer")));
        fixture.installed.set(installed);
        store.refresh();
        QTRY_COMPARE(model.rowCount(), 91);
        QCOMPARE(rows(model), names(store.visibleApps()));
        QCOMPARE(resets.count(), 0);
    }

    void anApplicationThatChangedIsAChangedRow() {
        StoreFixture fixture({found(QStringLiteral("Notes")), found(QStringLiteral("Safari"))});
        WallModel model(*fixture.store);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QTRY_COMPARE(model.rowCount(), 2);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
        auto notes = found(QStringLiteral("Notes"), "public.app-category.games");
        notes.name = QStringLiteral("Notebook");
        fixture.installed.set({notes, found(QStringLiteral("Safari"))});
        fixture.store->refresh();
        QTRY_COMPARE(changed.count(), 1);
        QCOMPARE(removed.count(), 0);
        QCOMPARE(rows(model), (QStringList{QStringLiteral("Notebook"), QStringLiteral("Safari")}));
    }

    void anApplicationThatTakesAnotherPlaceIsAMovedRow() {
        const QStringList before{QStringLiteral("Mail"), QStringLiteral("Notes"), QStringLiteral("Safari")};
        QList<FoundApplication> installed;
        for (const QString& name : before)
            installed.append(found(name));
        StoreFixture fixture(installed);
        WallModel model(*fixture.store);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QTRY_COMPARE(rows(model), before);
        QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
        QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
        const QPersistentModelIndex mail(model.index(0));
        const auto rename = [&](const QString& name, int row, const QStringList& after) {
            moved.clear();
            installed[0].name = name;
            fixture.installed.set(installed);
            fixture.store->refresh();
            QTRY_COMPARE(rows(model), after);
            QCOMPARE(moved.count(), 1);
            QCOMPARE(removed.count(), 0);
            QCOMPARE(mail.row(), row);
        };
        rename(QStringLiteral("Post"), 1, {QStringLiteral("Notes"), QStringLiteral("Post"), QStringLiteral("Safari")});
        rename(QStringLiteral("Telegrams"), 2,
               {QStringLiteral("Notes"), QStringLiteral("Safari"), QStringLiteral("Telegrams")});
        rename(QStringLiteral("Letters"), 0,
               {QStringLiteral("Letters"), QStringLiteral("Notes"), QStringLiteral("Safari")});
    }

    void rowsGiveWhatACardShows() {
        StoreFixture fixture({found(QStringLiteral("Compiler"), "public.app-category.developer-tools")});
        WallModel model(*fixture.store);
        QTRY_COMPARE(model.rowCount(), 1);
        const QModelIndex row = model.index(0);
        QCOMPARE(model.data(row, WallModel::NameRole).toString(), QStringLiteral("Compiler"));
        QCOMPARE(model.data(row, WallModel::CategoryLabelRole).toString(), QStringLiteral("Builder"));
        QCOMPARE(model.data(row, WallModel::AccentColorRole).value<QColor>(), QColor::fromRgbF(0.72F, 0.63F, 1.0F));
        QCOMPARE(model.data(row, WallModel::AppRole).value<LaunchableApp>(), fixture.store->apps().first());
        QVERIFY(!model.data(model.index(5), WallModel::NameRole).isValid());
    }
};

QTEST_GUILESS_MAIN(WallModelTest)
#include "WallModelTest.moc"
