#pragma once

#include "catalog/FileUrl.h"
#include "platform/linux/files/InotifyFolderWatcher.h"
#include "preferences/PreferencesStorage.h"

#include <optional>

namespace zelmo {

// Keeps the preferences in one property-list file, which a person or another program may edit at any
// time. What the program does not know in it stays as it is. Owned by the application's construction
// code, outlives Preferences; main thread only, with an event loop for changes from outside.
class PlistPreferencesFile : public PreferencesStorage {
public:
    static constexpr std::size_t standardSizeLimit = std::size_t{64} * 1024 * 1024;

    explicit PlistPreferencesFile(const FileUrl& file, std::size_t sizeLimit = standardSizeLimit);

    // "zelmo/preferences.plist" in the user's configuration folder.
    static FileUrl standardFile();

    // The first call sets a file that can't be read aside, so that the defaults apply. When the file
    // becomes unreadable later, what was read last stands.
    PreferenceValues read() override;
    bool write(const PreferenceValues& changes) override;
    void setOutsideChangeHandler(std::function<void()> handler) override;

private:
    enum class LoadResult { loaded, unreadable };

    LoadResult load();
    bool setAside(const QByteArray& path) const;
    void watch();
    void reportOutsideChange();

    QByteArray m_path;
    std::size_t m_sizeLimit;
    bool m_isFirstRead = true;
    // The last good contents; nothing when there is no file.
    std::optional<QByteArray> m_contents;
    PreferenceValues m_values;
    // What the user of this storage knows to be stored. Differs from `m_values` until an outside change
    // that a write came upon has been reported.
    PreferenceValues m_knownValues;
    std::function<void()> m_outsideChangeHandler;
    InotifyFolderWatcher m_watcher;
};

} // namespace zelmo
