#pragma once

#include "catalog/AppUsageRecord.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"

namespace zelmo::test {

// What is stored of the use of an application, by the name of its entry file; nothing when there is no record.
inline std::optional<AppUsageRecord> storedUsage(const QString& home, const QString& entryName) {
    PlistPreferencesFile file(FileUrl::fromPath(home + QStringLiteral("/.config/zelmo/preferences.plist")));
    const PreferenceValues values = file.read();
    const auto data = values.constFind(preferenceName(PreferenceKey::appUsageRecords));
    if (data == values.cend() || !std::holds_alternative<QByteArray>(*data))
        return std::nullopt;
    const AppUsageRecords records = decodeUsageRecords(std::get<QByteArray>(*data)).value_or(AppUsageRecords());
    for (auto record = records.cbegin(); record != records.cend(); ++record) {
        if (record.key().endsWith(u'/' + entryName))
            return *record;
    }
    return std::nullopt;
}

} // namespace zelmo::test
