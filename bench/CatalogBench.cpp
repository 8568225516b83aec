// The store's own work on a catalog in memory: publishing a scan, and what a key in the search field costs.

#include "support/CatalogFakes.h"
#include "ui/WallModel.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

QList<FoundApplication> applications(int count) {
    QList<FoundApplication> list;
    for (int i = 0; i < count; ++i)
        list.append(found(QStringLiteral("%1 Application %2").arg(QChar(u'A' + i % 26)).arg(i), nullptr));
    return list;
}

void waitForApps(const StoreFixture& fixture, int count) {
    while (fixture.store->apps().size() != count)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

// From asking for a scan until its result, sorted, stands in the store; the source itself costs nothing.
void refreshOfTheStore(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    StoreFixture fixture(applications(count));
    waitForApps(fixture, count);
    QList<FoundApplication> other = applications(count);
    for (auto _ : state) {
        other[0].name += u'x';
        fixture.installed.set(other);
        const QString wanted = other[0].name;
        fixture.store->refresh();
        while (!std::any_of(fixture.store->apps().cbegin(), fixture.store->apps().cend(),
                            [&](const LaunchableApp& app) { return app.name == wanted; }))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void visibleAppsOfASearch(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    StoreFixture fixture(applications(count));
    waitForApps(fixture, count);
    fixture.store->setSearchText(QStringLiteral("Cation 7"));
    for (auto _ : state)
        benchmark::DoNotOptimize(fixture.store->visibleApps());
}

// One key that narrows and one that widens, up to the model's announcements.
void narrowAndWidenTheModel(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    StoreFixture fixture(applications(count));
    waitForApps(fixture, count);
    const WallModel model(*fixture.store);
    for (auto _ : state) {
        fixture.store->setSearchText(QStringLiteral("7"));
        fixture.store->setSearchText(QString());
    }
}

} // namespace

BENCHMARK(refreshOfTheStore)->Arg(200)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(visibleAppsOfASearch)->Arg(200)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(narrowAndWidenTheModel)->Arg(200)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
