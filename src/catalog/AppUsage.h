#pragma once

#include "catalog/AppUsageRecord.h"
#include "catalog/LaunchableApp.h"
#include "catalog/RunningApplication.h"

#include <functional>
#include <optional>

namespace zelmo {

class Preferences;

// Two clocks: the date, and the seconds since some moment, which neither jump when the date is set nor
// pass while the machine sleeps.
struct UsageClocks {
    std::function<ReferenceDate()> now;
    std::function<double()> seconds;

    static UsageClocks system();
};

// Remembers how often each application was launched from here and how long it was in front. Owned by
// the store; main thread.
class AppUsage {
public:
    // What is in front for a shorter time than this, in seconds, waits for the next look or is lost.
    static constexpr double leastCredit = 1.0;

    // `ownProcess` is this program's: time in it is nobody's.
    AppUsage(Preferences& preferences, std::int64_t ownProcess, UsageClocks clocks);

    const AppUsageRecords& records() const { return m_records; }

    // The application is in front from now on; none, this program itself or one that is neither a bundle
    // nor a desktop entry stops the timing. Credits the one that was in front until now.
    void trackActiveApplication(const std::optional<RunningApplication>& application);
    // Credits the application in front with the time since it was last credited.
    void flushActiveAppUsage();
    // Counts it and stores the records at once.
    void recordLaunch(const LaunchableApp& app);
    // Drops the record; the next save stores that.
    void forget(const QString& path);
    // Stores the records, with whatever other preference waits to be stored.
    void saveUsageRecords();

    // A line such as "3 launches", "12m active" or "2h 5m active"; nothing for an application whose record shows no
    // use.
    std::optional<QString> usageSummary(const LaunchableApp& app) const;

private:
    void loadUsageRecords();

    Preferences& m_preferences;
    std::int64_t m_ownProcess;
    UsageClocks m_clocks;
    AppUsageRecords m_records;
    std::optional<QString> m_activeAppPath;
    double m_activeAppStartedAt = 0; // by the second clock, while a path is set
};

} // namespace zelmo
