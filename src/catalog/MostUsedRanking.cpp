#include "catalog/MostUsedRanking.h"

#include <cmath>

namespace zelmo {

namespace {

constexpr double leastActiveSeconds = 5.0;

bool precedes(const AppUsageRecord& a, const AppUsageRecord& b) {
    // Whole seconds tell two applications apart; within the same second the launches do.
    const double aSeconds = std::trunc(a.activeSeconds);
    const double bSeconds = std::trunc(b.activeSeconds);
    if (aSeconds != bSeconds)
        return aSeconds > bSeconds;
    if (a.launchCount != b.launchCount)
        return a.launchCount > b.launchCount;
    return a.lastLaunchedAt > b.lastLaunchedAt;
}

} // namespace

bool showsUse(const AppUsageRecord& record) {
    return record.launchCount >= 1 || record.activeSeconds >= leastActiveSeconds;
}

std::vector<qsizetype> mostUsedRanking(const QList<LaunchableApp>& apps, const AppUsageRecords& records) {
    struct Candidate {
        qsizetype position;
        const AppUsageRecord* record;
    };
    std::vector<Candidate> candidates;
    for (qsizetype i = 0; i < apps.size(); ++i) {
        const auto found = records.constFind(apps[i].url.path());
        if (found != records.constEnd() && showsUse(*found))
            candidates.push_back({i, &*found});
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return precedes(*a.record, *b.record); });
    std::vector<qsizetype> positions;
    positions.reserve(candidates.size());
    for (const Candidate& candidate : candidates)
        positions.push_back(candidate.position);
    return positions;
}

} // namespace zelmo
