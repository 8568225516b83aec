#pragma once

#include "catalog/FolderWatcher.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/WatchPlan.h"

#include <QHash>

#include <cstdint>
#include <memory>

class QSocketNotifier;

namespace zelmo {

// Watches folders through inotify. The way to each folder is watched as well, so that it is found
// again after it, or anything above it, was made, moved, replaced or led elsewhere by a link. Owned by
// whoever wants to know; lives on the main thread and needs its event loop.
class InotifyFolderWatcher : public FolderWatcher {
public:
    // Leaves most of the watches that a user has by default to other programs.
    static constexpr qsizetype standardLimit = 2048;

    explicit InotifyFolderWatcher(qsizetype watchLimit = standardLimit);
    ~InotifyFolderWatcher() override;

    void setFolders(const QList<FileUrl>& folders) override;
    void setChangeHandler(std::function<void()> handler) override;

private:
    struct Watch {
        int descriptor = -1;
        std::uint32_t mask = 0;
        PlannedWatch planned;
    };
    // What one batch of events means.
    struct Findings {
        bool changed = false;   // the handler is due
        bool waysMoved = false; // another plan is due
        bool lost = false;      // the kernel dropped events
        QSet<QByteArray> replaced;
    };

    void readEvents();
    void judgeEvent(int descriptor, std::uint32_t mask, const QByteArray& name, Findings& findings) const;
    void forgetWatchesBelow(const QSet<QByteArray>& paths);
    void removeWatch(const QByteArray& path);
    void refresh();
    bool apply(const WatchPlan& plan);
    bool makeRoom(const QList<QByteArray>& order, qsizetype position);

    qsizetype m_limit;
    FileDescriptor m_inotify;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::function<void()> m_handler;
    QList<FileUrl> m_folders;
    bool m_complete = false;
    bool m_warned = false;
    QHash<QByteArray, Watch> m_watches;
    // A folder that is mounted in two places has one descriptor for both of its paths.
    QMultiHash<int, QByteArray> m_pathByDescriptor;
};

} // namespace zelmo
