#include "platform/linux/freedesktop/EntryFolderWalk.h"

#include <QString> // joins byte arrays too

#include <deque>
#include <set>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zelmo {

namespace {

struct PendingFolder {
    QByteArray path;
    QByteArray idPrefix;

    friend bool operator<(const PendingFolder& a, const PendingFolder& b) { return a.path < b.path; }
};

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

OpenFolder openFolder(const QByteArray& path) {
    const int descriptor = open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return nullptr;
    OpenFolder folder(fdopendir(descriptor));
    if (!folder)
        close(descriptor);
    return folder;
}

bool isEntryName(std::string_view name) {
    return name.ends_with(".desktop");
}

class FolderWalk {
public:
    FolderWalk(const EntryFolderVisitor& atFolder, const EntryFileVisitor& atFile)
        : m_atFolder(atFolder), m_atFile(atFile) {}

    void run(const QByteArray& root) {
        m_folders.push_back({root, QByteArray()});
        // Links in the order of their paths: which of two links to the same folder is followed must
        // not depend on how the disk orders them.
        while (!m_folders.empty() || !m_links.empty()) {
            if (!m_folders.empty()) {
                const PendingFolder folder = m_folders.front();
                m_folders.pop_front();
                visit(folder, FolderKind::real);
            } else {
                const PendingFolder link = *m_links.begin();
                m_links.erase(m_links.begin());
                visit(link, FolderKind::linked);
            }
        }
    }

private:
    enum class FolderKind { real, linked };

    void visit(const PendingFolder& pending, FolderKind kind) {
        const OpenFolder folder = openFolder(pending.path);
        struct stat status {};
        if (!folder || fstat(dirfd(folder.get()), &status) != 0) {
            // A link to nothing or to a file is no folder; what was seen to be one may open next time.
            if (kind == FolderKind::real)
                m_atFolder(pending.path);
            return;
        }
        if (!m_visited.insert({status.st_dev, status.st_ino}).second)
            return;
        m_atFolder(pending.path);

        EntryFileVisit file;
        file.folder = dirfd(folder.get());
        file.path = pending.path;
        while (const dirent* entry = readdir(folder.get())) {
            const std::string_view name(entry->d_name);
            if (isEntryName(name)) {
                file.name = entry->d_name;
                file.entryId = pending.idPrefix + entry->d_name;
                m_atFile(file);
            } else if (name != "." && name != "..") {
                remember(pending, entry->d_name, typeOf(file.folder, *entry));
            }
        }
    }

    static unsigned char typeOf(int folder, const dirent& entry) {
        if (entry.d_type != DT_UNKNOWN)
            return entry.d_type;
        struct stat status {};
        if (fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            return DT_UNKNOWN;
        return static_cast<unsigned char>(IFTODT(status.st_mode));
    }

    void remember(const PendingFolder& parent, const char* name, unsigned char type) {
        if (type != DT_DIR && type != DT_LNK)
            return;
        PendingFolder child{parent.path + '/' + name, parent.idPrefix + name + '-'};
        if (type == DT_DIR)
            m_folders.push_back(std::move(child));
        else
            m_links.insert(std::move(child));
    }

    const EntryFolderVisitor& m_atFolder;
    const EntryFileVisitor& m_atFile;
    std::deque<PendingFolder> m_folders;
    std::set<PendingFolder> m_links;
    std::set<std::pair<dev_t, ino_t>> m_visited;
};

} // namespace

void walkEntryFolders(const QByteArray& root, const EntryFolderVisitor& atFolder, const EntryFileVisitor& atFile) {
    FolderWalk(atFolder, atFile).run(root);
}

} // namespace zelmo
