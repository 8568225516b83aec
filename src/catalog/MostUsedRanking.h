#pragma once

#include "catalog/AppUsageRecord.h"
#include "catalog/LaunchableApp.h"

#include <QList>

#include <vector>

namespace zelmo {

// Whether a record is worth showing: at least one launch or 5 seconds in front.
bool showsUse(const AppUsageRecord& record);

// The positions in `apps` of the applications whose record shows use, the most used first: by whole
// seconds in front, then launches, then the latest launch. Ties keep the order of `apps`.
std::vector<qsizetype> mostUsedRanking(const QList<LaunchableApp>& apps, const AppUsageRecords& records);

} // namespace zelmo
