#pragma once

#include "platform/linux/icons/IconEnvironment.h"
#include "platform/linux/icons/IconTheme.h"

#include <QMutex>
#include <QSet>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace zelmo {

// Knows all icon files of the user's theme, of the themes behind it and outside of themes. Reads
// folders when they are first needed, remembers names that are nowhere, and notices changed folders
// when it is next asked. Owned by the icon source; may be used on several threads at once.
class IconThemeIndex {
public:
    using Clock = std::function<std::chrono::milliseconds()>;

    // `theme` is what the user chose, if anything. The clock never runs back.
    IconThemeIndex(IconFolders folders, std::optional<QByteArray> theme, Clock clock = monotonicTime);

    // The paths of the icon's files, the one that fits this size and scale best first, at most `limit`.
    QList<QByteArray> files(const QByteArray& name, int points, double scale, int limit);

    // How many names and files are known, and in how many bytes.
    struct Extent {
        std::size_t names = 0;
        std::size_t files = 0;
        std::size_t bytes = 0;
    };
    Extent extent() const;

    static std::chrono::milliseconds monotonicTime();

private:
    void forgetOutdated();
    void buildChain();
    void appendTheme(const QByteArray& name, QSet<QByteArray>& visited);
    IconTheme* theme(const QByteArray& name);
    QList<QByteArray> exactFiles(const QByteArray& name, int points, double scale, int limit);

    const IconFolders m_folders;
    const std::optional<QByteArray> m_chosenTheme;
    const Clock m_clock;

    mutable QMutex m_mutex;
    std::map<QByteArray, std::unique_ptr<IconTheme>> m_themes; // null: asked for, but not there
    std::unique_ptr<IconTheme> m_plainFolders;                 // null until the first look-up
    QList<QByteArray> m_chain;                                 // in the order of look-up
    QSet<QByteArray> m_missing;
    FolderTimes m_baseTimes;
    std::chrono::milliseconds m_checkTime{0};
};

} // namespace zelmo
