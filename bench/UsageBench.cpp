// What it costs to remember the use of applications: at most every 30 seconds, at every switch and at every launch.

#include "catalog/AppUsage.h"
#include "catalog/MostUsedRanking.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"
#include "preferences/Preferences.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace zelmo;

namespace {

LaunchableApp application(int number) {
    const FileUrl url =
        FileUrl::fromPath(QStringLiteral("/usr/share/applications/org.example.App%1.desktop").arg(number));
    return {.id = url, .name = {}, .url = url, .icon = {}};
}

AppUsageRecords records(int count) {
    AppUsageRecords all;
    for (int i = 0; i < count; ++i)
        all.insert(application(i).url.path(),
                   {.launchCount = i % 7, .lastLaunchedAt = 8e8 + i, .activeSeconds = i * 1.1});
    return all;
}

void encodeRecords(benchmark::State& state) {
    const AppUsageRecords all = records(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(encodeUsageRecords(all));
}

void decodeRecords(benchmark::State& state) {
    const QByteArray json = encodeUsageRecords(records(static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeUsageRecords(json));
}

// A launch counted and on the disk.
void saveToTheDisk(benchmark::State& state) {
    const QTemporaryDir folder;
    PlistPreferencesFile file(FileUrl::fromNativePath(QFile::encodeName(folder.filePath(QStringLiteral("p.plist")))));
    Preferences preferences(file);
    preferences.setValue<PreferenceKey::appUsageRecords>(encodeUsageRecords(records(static_cast<int>(state.range(0)))));
    AppUsage usage(preferences, 1, UsageClocks::system());
    for (auto _ : state)
        usage.recordLaunch(application(0));
}

void rankMostUsed(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const AppUsageRecords all = records(count);
    QList<LaunchableApp> apps;
    for (int i = 0; i < count; ++i)
        apps.append(application(i));
    for (auto _ : state)
        benchmark::DoNotOptimize(mostUsedRanking(apps, all));
}

} // namespace

BENCHMARK(encodeRecords)->Arg(200)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeRecords)->Arg(200)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveToTheDisk)->Arg(200)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(rankMostUsed)->Arg(200)->Arg(10000)->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
