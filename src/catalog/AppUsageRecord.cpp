#include "catalog/AppUsageRecord.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace zelmo {

namespace {

constexpr QLatin1StringView launchCountName("launchCount");
constexpr QLatin1StringView lastLaunchedAtName("lastLaunchedAt");
constexpr QLatin1StringView activeSecondsName("activeSeconds");

std::optional<std::int64_t> toInteger(const QJsonValue& value) {
    // Two different fallbacks: only a value that really is an integer gives neither.
    if (!value.isDouble() || value.toInteger(0) != value.toInteger(1))
        return std::nullopt;
    return value.toInteger();
}

std::optional<AppUsageRecord> decodeRecord(const QJsonValue& value) {
    if (!value.isObject())
        return std::nullopt;
    const QJsonObject object = value.toObject();
    const auto launchCount = toInteger(object.value(launchCountName));
    const QJsonValue lastLaunchedAt = object.value(lastLaunchedAtName);
    const QJsonValue activeSeconds = object.value(activeSecondsName);
    const bool hasSeconds = !activeSeconds.isUndefined() && !activeSeconds.isNull();
    if (!launchCount || !lastLaunchedAt.isDouble() || (hasSeconds && !activeSeconds.isDouble()))
        return std::nullopt;
    return AppUsageRecord{.launchCount = *launchCount,
                          .lastLaunchedAt = lastLaunchedAt.toDouble(),
                          .activeSeconds = hasSeconds ? activeSeconds.toDouble() : 0};
}

} // namespace

QByteArray encodeUsageRecords(const AppUsageRecords& records) {
    // An object keeps its names in order, so one that comes in order is not moved again.
    QStringList paths = records.keys();
    std::sort(paths.begin(), paths.end());
    QJsonObject object;
    for (const QString& path : std::as_const(paths)) {
        const AppUsageRecord record = records.value(path);
        object.insert(path, QJsonObject{{launchCountName, static_cast<qint64>(record.launchCount)},
                                        {lastLaunchedAtName, record.lastLaunchedAt},
                                        {activeSecondsName, record.activeSeconds}});
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<AppUsageRecords> decodeUsageRecords(const QByteArray& json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return std::nullopt;
    const QJsonObject object = document.object();
    AppUsageRecords records;
    records.reserve(object.size());
    for (auto it = object.begin(); it != object.end(); ++it) {
        const auto record = decodeRecord(it.value());
        if (!record)
            return std::nullopt;
        records.insert(it.key(), *record);
    }
    return records;
}

} // namespace zelmo
