#pragma once

#include "TemporaryFolder.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"
#include "preferences/Preferences.h"

#include <QDir>

namespace zelmo {

using Key = PreferenceKey;

inline QByteArray xmlPreferences(const QByteArray& entries) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>" + entries +
           "</dict>\n</plist>\n";
}

// What another start of the program would find in the file.
inline PreferenceValues storedIn(const FileUrl& file) {
    return PlistPreferencesFile(file).read();
}

inline QString nameOf(Key key) {
    return preferenceName(key);
}

// Every entry of a folder, hidden ones too.
inline QStringList entriesOf(const QByteArray& folder) {
    return QDir(QString::fromUtf8(folder))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

inline mode_t modeOf(const QByteArray& path) {
    struct stat status {};
    return stat(path.constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

} // namespace zelmo
