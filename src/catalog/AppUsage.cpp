#include "catalog/AppUsage.h"

#include "catalog/MostUsedRanking.h"
#include "preferences/Preferences.h"

#include <QDateTime>

#include <chrono>
#include <cmath>
#include <limits>

namespace zelmo {

namespace {

// 2001-01-01T00:00:00Z in seconds since 1970.
constexpr double referenceEpoch = 978307200;

bool isApplicationPath(const QString& path) {
    return path.endsWith(QLatin1StringView(".app")) || path.endsWith(QLatin1StringView(".desktop"));
}

} // namespace

UsageClocks UsageClocks::system() {
    return {.now = [] { return static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000 - referenceEpoch; },
            .seconds =
                [] {
                    // CLOCK_MONOTONIC, which stands still while the machine sleeps.
                    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
                }};
}

AppUsage::AppUsage(Preferences& preferences, std::int64_t ownProcess, UsageClocks clocks)
    : m_preferences(preferences), m_ownProcess(ownProcess), m_clocks(std::move(clocks)) {
    loadUsageRecords();
}

void AppUsage::trackActiveApplication(const std::optional<RunningApplication>& application) {
    flushActiveAppUsage();
    m_activeAppPath.reset();
    if (!application || application->processIdentifier == m_ownProcess || !application->bundleUrl ||
        !isApplicationPath(application->bundleUrl->path()))
        return;
    m_activeAppPath = application->bundleUrl->path();
    m_activeAppStartedAt = m_clocks.seconds();
    if (!m_records.contains(*m_activeAppPath))
        m_records.insert(*m_activeAppPath, {});
}

void AppUsage::flushActiveAppUsage() {
    if (!m_activeAppPath)
        return;
    const double seconds = m_clocks.seconds();
    const double elapsed = seconds - m_activeAppStartedAt;
    if (elapsed < leastCredit)
        return;
    m_records[*m_activeAppPath].activeSeconds += elapsed;
    m_activeAppStartedAt = seconds;
    saveUsageRecords();
}

void AppUsage::recordLaunch(const LaunchableApp& app) {
    AppUsageRecord& record = m_records[app.url.path()];
    if (record.launchCount < std::numeric_limits<std::int64_t>::max())
        ++record.launchCount;
    record.lastLaunchedAt = m_clocks.now();
    saveUsageRecords();
}

void AppUsage::forget(const QString& path) {
    m_records.remove(path);
}

std::optional<QString> AppUsage::usageSummary(const LaunchableApp& app) const {
    const auto record = m_records.constFind(app.url.path());
    if (record == m_records.constEnd() || !showsUse(*record))
        return std::nullopt;
    const double minutes = std::trunc(record->activeSeconds / 60);
    const auto decimal = [](double number) { return QString::number(number, 'f', 0); };
    if (minutes < 1) {
        return QString(QString::number(record->launchCount) +
                       (record->launchCount == 1 ? QLatin1StringView(" launch") : QLatin1StringView(" launches")));
    }
    if (minutes < 60)
        return QString(decimal(minutes) + QLatin1StringView("m active"));
    const QString hours = decimal(std::trunc(minutes / 60)) + u'h';
    const double rest = std::fmod(minutes, 60);
    return rest == 0 ? QString(hours + QLatin1StringView(" active"))
                     : QString(hours + u' ' + decimal(rest) + QLatin1StringView("m active"));
}

void AppUsage::loadUsageRecords() {
    m_records = decodeUsageRecords(m_preferences.value<PreferenceKey::appUsageRecords>()).value_or(AppUsageRecords{});
}

void AppUsage::saveUsageRecords() {
    m_preferences.setValue<PreferenceKey::appUsageRecords>(encodeUsageRecords(m_records));
    m_preferences.flush();
}

} // namespace zelmo
