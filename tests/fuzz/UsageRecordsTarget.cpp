#include "catalog/AppUsage.h"
#include "catalog/MostUsedRanking.h"
#include "fuzz/FuzzTarget.h"
#include "support/CatalogFakes.h"

using namespace zelmo;

// Records that were edited by hand, or damaged: they are read, ranked, shown, counted on and stored.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    test::FakeStorage storage;
    const QString name = preferenceName(PreferenceKey::appUsageRecords);
    storage.values.insert(name, fuzz::copyOf(data, size));
    Preferences preferences(storage);
    double seconds = 0;
    AppUsage usage(preferences, 1, {.now = [] { return 800000000.0; }, .seconds = [&] { return seconds; }});

    QList<LaunchableApp> apps;
    const QStringList paths = usage.records().keys();
    for (const QString& path : paths) {
        const FileUrl url = FileUrl::fromPath(path);
        apps.append({.id = url, .name = path, .url = url, .icon = {}});
    }
    fuzz::require(mostUsedRanking(apps, usage.records()).size() <= static_cast<std::size_t>(apps.size()),
                  "no application is ranked twice");
    for (const LaunchableApp& app : std::as_const(apps)) {
        usage.usageSummary(app);
        usage.trackActiveApplication(RunningApplication{.processIdentifier = 2, .bundleUrl = app.url});
        seconds += 2;
        const std::int64_t count = usage.records().value(app.url.path()).launchCount;
        usage.recordLaunch(app);
        fuzz::require(usage.records().value(app.url.path()).launchCount >= count, "a launch takes no launches away");
    }
    usage.trackActiveApplication(std::nullopt);
    usage.saveUsageRecords();
    const auto stored = decodeUsageRecords(std::get<QByteArray>(storage.values[name]));
    fuzz::require(stored == usage.records(), "stored records read back to the same bits");
    return 0;
}
