#include "platform/linux/trash/CopiedTree.h"

#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/FileReplacement.h"

#include <QList>

#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/prctl.h>
#include <sys/stat.h>

#include <csignal>
#include <glib.h>

namespace zelmo {

namespace {

// The coarsest times that a file system in use keeps, in seconds.
constexpr qint64 timeResolution = 2;

using Status = struct statx;

bool readStatus(int folder, const char* name, Status& status) {
    return statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_EMPTY_PATH, STATX_BASIC_STATS, &status) == 0;
}

bool isFolder(const Status& status) {
    return S_ISDIR(status.stx_mode);
}

QByteArray fileName(const QByteArray& path) {
    return path.mid(path.lastIndexOf('/') + 1);
}

// Searching a folder takes no right to read it.
FileDescriptor parentOf(const QByteArray& path) {
    return FileDescriptor(open(parentFolder(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

// A folder that is open for reading.
class Folder {
public:
    Folder(int parent, const char* name) {
        const int descriptor = openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        m_stream = descriptor < 0 ? nullptr : fdopendir(descriptor);
    }
    ~Folder() {
        if (m_stream)
            closedir(m_stream);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    bool isValid() const { return m_stream != nullptr; }
    int descriptor() const { return dirfd(m_stream); }
    QList<QByteArray> names() const {
        QList<QByteArray> names;
        while (const dirent* entry = readdir(m_stream)) {
            if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
                names.append(entry->d_name);
        }
        return names;
    }

private:
    DIR* m_stream = nullptr;
};

bool isProtected(const Status& status) {
    return (status.stx_attributes & (STATX_ATTR_MOUNT_ROOT | STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND)) != 0;
}

// Whether the folder's rights and mode let this process remove an entry of that owner.
bool mayRemoveFrom(int folder, const Status& folderStatus, const Status& entry) {
    const uid_t user = geteuid();
    const bool keepsOthersOut = (folderStatus.stx_mode & S_ISVTX) != 0 && user != 0;
    return faccessat(folder, ".", W_OK | X_OK, AT_EACCESS) == 0 &&
           (!keepsOthersOut || user == entry.stx_uid || user == folderStatus.stx_uid);
}

bool isEntryRemovable(int folder, const Status& folderStatus, const char* name, int depth) {
    Status status{};
    if (depth > maximumTreeDepth || !readStatus(folder, name, status) || isProtected(status) ||
        !mayRemoveFrom(folder, folderStatus, status))
        return false;
    if (!isFolder(status))
        return true;
    const Folder opened(folder, name);
    if (!opened.isValid())
        return false;
    const QList<QByteArray> names = opened.names();
    return std::all_of(names.cbegin(), names.cend(), [&](const QByteArray& child) {
        return isEntryRemovable(opened.descriptor(), status, child.constData(), depth + 1);
    });
}

bool isAsCopied(const Status& original, const Status& copy) {
    if ((original.stx_mode & S_IFMT) != (copy.stx_mode & S_IFMT))
        return false;
    return !S_ISREG(original.stx_mode) ||
           (original.stx_size == copy.stx_size &&
            std::abs(original.stx_mtime.tv_sec - copy.stx_mtime.tv_sec) <= timeResolution);
}

// An entry of a folder.
struct Place {
    int folder;
    const char* name;
};

// Whether the copy has all of the original, as it is now.
bool isSameTree(Place original, Place copy) {
    Status originalStatus{};
    Status copyStatus{};
    if (!readStatus(original.folder, original.name, originalStatus) ||
        !readStatus(copy.folder, copy.name, copyStatus) || !isAsCopied(originalStatus, copyStatus))
        return false;
    if (!isFolder(originalStatus))
        return true;
    const Folder originalFolder(original.folder, original.name);
    const Folder copyFolder(copy.folder, copy.name);
    if (!originalFolder.isValid() || !copyFolder.isValid())
        return false;
    const QList<QByteArray> names = originalFolder.names();
    return std::all_of(names.cbegin(), names.cend(), [&](const QByteArray& child) {
        return isSameTree({originalFolder.descriptor(), child.constData()},
                          {copyFolder.descriptor(), child.constData()});
    });
}

bool removeEntry(Place original, Place copy, int& removed) {
    Status status{};
    if (!readStatus(original.folder, original.name, status))
        return false;
    if (isFolder(status)) {
        const Folder originalFolder(original.folder, original.name);
        const Folder copyFolder(copy.folder, copy.name);
        if (!originalFolder.isValid() || !copyFolder.isValid())
            return false;
        for (const QByteArray& child : copyFolder.names()) {
            if (!removeEntry({originalFolder.descriptor(), child.constData()},
                             {copyFolder.descriptor(), child.constData()}, removed))
                return false;
        }
    }
    if (unlinkat(original.folder, original.name, isFolder(status) ? AT_REMOVEDIR : 0) != 0)
        return false;
    ++removed;
    return true;
}

// Nobody would wait for the copy any more.
void dieWithParent(gpointer) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

} // namespace

bool isTreeRemovable(const QByteArray& path) {
    const FileDescriptor parent = parentOf(path);
    Status parentStatus{};
    return parent.isValid() && readStatus(parent.value(), "", parentStatus) &&
           (parentStatus.stx_attributes & (STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND)) == 0 &&
           isEntryRemovable(parent.value(), parentStatus, fileName(path).constData(), 0);
}

// By the system's own tool, which knows all that a file can carry. No shell reads the paths.
bool copyTree(const QByteArray& from, const QByteArray& to, CopyScope scope) {
    QList<const char*> arguments{"cp", "-a", "--no-target-directory"};
    if (scope == CopyScope::whatIsMissing)
        arguments.append("--update");
    arguments << "--" << from.constData() << to.constData() << nullptr;
    const auto flags =
        static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
    gint status = 0;
    return g_spawn_sync(nullptr, const_cast<gchar**>(arguments.data()), nullptr, flags, dieWithParent, nullptr, nullptr,
                        nullptr, &status, nullptr) != FALSE &&
           status == 0;
}

RemovalResult removeCopiedTree(const QByteArray& original, const QByteArray& copy) {
    const FileDescriptor originalParent = parentOf(original);
    const FileDescriptor copyParent = parentOf(copy);
    const QByteArray originalName = fileName(original);
    const QByteArray copyName = fileName(copy);
    const Place originalPlace{originalParent.value(), originalName.constData()};
    const Place copyPlace{copyParent.value(), copyName.constData()};
    int removed = 0;
    if (originalParent.isValid() && copyParent.isValid() && isSameTree(originalPlace, copyPlace) &&
        removeEntry(originalPlace, copyPlace, removed))
        return RemovalResult::removed;
    return removed == 0 ? RemovalResult::untouched : RemovalResult::begun;
}

} // namespace zelmo
