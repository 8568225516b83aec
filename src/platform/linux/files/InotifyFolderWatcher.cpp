#include "platform/linux/files/InotifyFolderWatcher.h"

#include "platform/linux/files/FileReplacement.h"

#include <QLoggingCategory>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <cstring>
#include <sys/inotify.h>

namespace zelmo {

namespace {

constexpr std::uint32_t wayMask = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ATTRIB;
// A file counts when its writer closes it: a growing log would wake the program at every line.
constexpr std::uint32_t folderMask = wayMask | IN_CLOSE_WRITE;
constexpr std::uint32_t replacingMask = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr int maximumRefreshes = 8;

} // namespace

InotifyFolderWatcher::InotifyFolderWatcher(qsizetype watchLimit)
    : m_limit(watchLimit), m_inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (!m_inotify.isValid()) {
        qWarning("Folders can't be watched: %s", std::strerror(errno));
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_inotify.value(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { readEvents(); });
}

InotifyFolderWatcher::~InotifyFolderWatcher() = default;

void InotifyFolderWatcher::setFolders(const QList<FileUrl>& folders) {
    if (m_complete && folders == m_folders)
        return;
    m_folders = folders;
    refresh();
}

void InotifyFolderWatcher::setChangeHandler(std::function<void()> handler) {
    m_handler = std::move(handler);
}

void InotifyFolderWatcher::readEvents() {
    alignas(inotify_event) std::array<char, 64 * 1024> buffer;
    const ssize_t length = read(m_inotify.value(), buffer.data(), buffer.size());
    if (length <= 0)
        return;

    Findings findings;
    QSet<int> ended;
    for (std::size_t position = 0; position < static_cast<std::size_t>(length);) {
        inotify_event event;
        std::memcpy(&event, buffer.data() + position, sizeof event);
        const char* name = buffer.data() + position + sizeof event;
        position += sizeof event + event.len;
        if (event.mask & IN_IGNORED)
            ended.insert(event.wd);
        judgeEvent(event.wd, event.mask, QByteArray(name, static_cast<qsizetype>(strnlen(name, event.len))), findings);
    }
    for (const int descriptor : std::as_const(ended)) {
        const QList<QByteArray> paths = m_pathByDescriptor.values(descriptor);
        for (const QByteArray& path : paths)
            m_watches.remove(path);
        m_pathByDescriptor.remove(descriptor);
    }
    if (findings.lost) {
        const QList<QByteArray> paths = m_watches.keys();
        for (const QByteArray& path : paths)
            removeWatch(path);
    }
    forgetWatchesBelow(findings.replaced);
    if (findings.waysMoved)
        refresh();

    // A copy: the handler may set another one, or end this watcher.
    const std::function<void()> handler = m_handler;
    if (findings.changed && handler)
        handler();
}

void InotifyFolderWatcher::judgeEvent(int descriptor, std::uint32_t mask, const QByteArray& name,
                                      Findings& findings) const {
    if (mask & IN_Q_OVERFLOW) {
        findings.lost = findings.waysMoved = findings.changed = true;
        return;
    }
    for (auto it = m_pathByDescriptor.constFind(descriptor);
         it != m_pathByDescriptor.constEnd() && it.key() == descriptor; ++it) {
        const PlannedWatch& planned = m_watches.constFind(*it)->planned;
        if (mask & IN_IGNORED)
            findings.waysMoved = findings.changed = true;
        if (planned.wholeFolder)
            findings.changed = true;
        if (planned.names.contains(name)) {
            findings.waysMoved = findings.changed = true;
            if (mask & replacingMask)
                findings.replaced.insert(childPath(*it, name));
        }
    }
}

// Watches stay with a folder when it moves, so those at and below a changed name may be elsewhere now.
void InotifyFolderWatcher::forgetWatchesBelow(const QSet<QByteArray>& paths) {
    if (paths.isEmpty())
        return;
    const QList<QByteArray> watched = m_watches.keys();
    for (const QByteArray& path : watched) {
        for (QByteArray above = path; above != "/"; above = parentFolder(above)) {
            if (paths.contains(above)) {
                removeWatch(path);
                break;
            }
        }
    }
}

void InotifyFolderWatcher::removeWatch(const QByteArray& path) {
    const Watch watch = m_watches.take(path);
    m_pathByDescriptor.remove(watch.descriptor, path);
    if (!m_pathByDescriptor.contains(watch.descriptor))
        inotify_rm_watch(m_inotify.value(), watch.descriptor);
}

void InotifyFolderWatcher::refresh() {
    if (!m_inotify.isValid())
        return;
    // A folder may be made or moved after it was looked at and before its watch was there to tell.
    for (int i = 0; i < maximumRefreshes; ++i) {
        WatchPlan plan(m_limit);
        m_complete = true;
        for (const FileUrl& folder : std::as_const(m_folders)) {
            if (!plan.add(folder.nativePath())) {
                m_complete = false;
                break;
            }
        }
        if (!apply(plan))
            break;
    }
    if (!m_complete && !m_warned) {
        qWarning("Too many folders to watch: changes in some are seen with the next scan only");
        m_warned = true;
    }
}

// Whether anything is watched now that was not before.
bool InotifyFolderWatcher::apply(const WatchPlan& plan) {
    const QList<QByteArray> old = m_watches.keys();
    for (const QByteArray& path : old) {
        if (!plan.watches().contains(path))
            removeWatch(path);
    }
    bool added = false;
    for (qsizetype i = 0; i < plan.order().size(); ++i) {
        const QByteArray& path = plan.order()[i];
        const PlannedWatch& planned = *plan.watches().constFind(path);
        const std::uint32_t mask = planned.wholeFolder ? folderMask : wayMask;
        const auto known = m_watches.find(path);
        if (known != m_watches.end()) {
            known->planned = planned;
            if ((known->mask & mask) == mask)
                continue;
        }
        const auto addWatch = [&] {
            return inotify_add_watch(m_inotify.value(), path.constData(),
                                     mask | IN_ONLYDIR | IN_DONT_FOLLOW | IN_EXCL_UNLINK | IN_MASK_ADD);
        };
        int descriptor = addWatch();
        while (descriptor < 0 && errno == ENOSPC && makeRoom(plan.order(), i))
            descriptor = addWatch();
        if (descriptor < 0) {
            if (errno == ENOSPC) {
                m_complete = false;
                break;
            }
            added |= errno == ENOENT || errno == ENOTDIR;
            continue;
        }
        if (known != m_watches.end() && known->descriptor != descriptor)
            removeWatch(path);
        m_watches.insert(path, {.descriptor = descriptor, .mask = mask, .planned = planned});
        if (!m_pathByDescriptor.contains(descriptor, path))
            m_pathByDescriptor.insert(descriptor, path);
        added = true;
    }
    return added;
}

// Gives up the least important watch behind `position`.
bool InotifyFolderWatcher::makeRoom(const QList<QByteArray>& order, qsizetype position) {
    for (qsizetype i = order.size() - 1; i > position; --i) {
        if (m_watches.contains(order[i])) {
            removeWatch(order[i]);
            return true;
        }
    }
    return false;
}

} // namespace zelmo
