#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <cstdint>
#include <optional>

namespace zelmo {

// A point in time: seconds since 2001-01-01T00:00:00Z.
using ReferenceDate = double;

// 0001-01-01T00:00:00Z, which stands for "never".
inline constexpr ReferenceDate distantPast = -63114076800.0;

// What the launcher remembers about the use of one application.
struct AppUsageRecord {
    std::int64_t launchCount = 0; // launches made from the launcher
    ReferenceDate lastLaunchedAt = distantPast;
    double activeSeconds = 0; // time in front

    friend bool operator==(const AppUsageRecord&, const AppUsageRecord&) = default;
};

// By the path of the application's bundle.
using AppUsageRecords = QHash<QString, AppUsageRecord>;

// A JSON object of path to {"launchCount", "lastLaunchedAt", "activeSeconds"}. Reads back to the same bits.
QByteArray encodeUsageRecords(const AppUsageRecords& records);
// Nothing when any record lacks "launchCount" or "lastLaunchedAt" or holds a value of another type;
// "activeSeconds" may be absent and is 0 then.
std::optional<AppUsageRecords> decodeUsageRecords(const QByteArray& json);

} // namespace zelmo
