#include "platform/linux/files/FileReplacement.h"

#include "platform/linux/files/FileDescriptor.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>

namespace zelmo {

namespace {

constexpr int maximumLinks = 40;
constexpr int maximumAttempts = 16;
constexpr int maximumAsideNames = 10'000;
constexpr qsizetype randomLength = 6;

QByteArray fileName(const QByteArray& path) {
    return path.mid(path.lastIndexOf('/') + 1);
}

// What the names of prepared files start with; a random part follows.
QByteArray preparedPrefix(const QByteArray& target) {
    return "." + fileName(target) + ".new-";
}

// Where the file system can't do this for a folder, nothing better is to be had.
void synchronizeFolder(const QByteArray& folder) {
    const FileDescriptor descriptor(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isValid())
        fsync(descriptor.value());
}

bool makeFolders(const QByteArray& folder) {
    if (mkdir(folder.constData(), 0700) == 0) {
        synchronizeFolder(parentFolder(folder));
        return true;
    }
    if (errno == EEXIST)
        return true;
    if (errno != ENOENT || folder == "/" || !makeFolders(parentFolder(folder)))
        return false;
    if (mkdir(folder.constData(), 0700) != 0)
        return errno == EEXIST;
    synchronizeFolder(parentFolder(folder));
    return true;
}

bool writeAll(int file, const QByteArray& contents) {
    qsizetype written = 0;
    while (written < contents.size()) {
        const ssize_t count =
            write(file, contents.constData() + written, static_cast<std::size_t>(contents.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

// False with EEXIST when `to` exists.
bool renameWithoutReplacing(const QByteArray& from, const QByteArray& to) {
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // A file system without that operation: a second name can't overwrite either.
    return linkat(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), 0) == 0 && unlink(from.constData()) == 0;
}

} // namespace

FileReplacement::FileReplacement(QByteArray target) : m_target(std::move(target)) {}

FileReplacement::~FileReplacement() {
    if (!m_prepared.isEmpty())
        unlink(m_prepared.constData());
    if (m_file >= 0)
        close(m_file);
}

bool FileReplacement::prepare(const QByteArray& contents) {
    const QByteArray folder = parentFolder(m_target);
    if (!makeFolders(folder))
        return false;
    // The lock tells a living writer's file from an abandoned one. Whoever cleans up may take it in
    // the moment before it is locked; then there is no name left, and another file is made.
    for (int attempt = 0;; ++attempt) {
        if (attempt == maximumAttempts)
            return false;
        QByteArray name = folder + "/" + preparedPrefix(m_target) + QByteArray(randomLength, 'X');
        m_file = mkostemp(name.data(), O_CLOEXEC); // exclusive, for the owner alone
        if (m_file < 0)
            return false;
        flock(m_file, LOCK_EX);
        struct stat status {};
        if (fstat(m_file, &status) == 0 && status.st_nlink > 0) {
            m_prepared = name;
            break;
        }
        close(m_file);
        m_file = -1;
    }
    if (!writeAll(m_file, contents))
        return false;
    struct stat existing {};
    if (lstat(m_target.constData(), &existing) == 0 && S_ISREG(existing.st_mode) &&
        fchmod(m_file, (existing.st_mode & 0777) | S_IRUSR) != 0)
        return false;
    return fsync(m_file) == 0;
}

bool FileReplacement::commit() {
    if (m_prepared.isEmpty() || rename(m_prepared.constData(), m_target.constData()) != 0)
        return false;
    m_prepared.clear();
    synchronizeFolder(parentFolder(m_target));
    return true;
}

void FileReplacement::removeAbandoned(const QByteArray& target) {
    const QByteArray folderPath = parentFolder(target);
    const QByteArray prefix = preparedPrefix(target);
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(folderPath.constData()), closedir);
    if (!folder)
        return;
    const int folderDescriptor = dirfd(folder.get());
    while (const dirent* entry = readdir(folder.get())) {
        const auto name = QByteArray::fromRawData(entry->d_name, static_cast<qsizetype>(qstrlen(entry->d_name)));
        if (!name.startsWith(prefix) || name.size() != prefix.size() + randomLength)
            continue;
        const FileDescriptor file(
            openat(folderDescriptor, entry->d_name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        struct stat status {};
        if (file.isValid() && fstat(file.value(), &status) == 0 && S_ISREG(status.st_mode) &&
            flock(file.value(), LOCK_EX | LOCK_NB) == 0)
            unlinkat(folderDescriptor, entry->d_name, 0);
    }
}

QList<QByteArray> linkSteps(const QByteArray& path) {
    QList<QByteArray> steps{path};
    std::array<char, PATH_MAX> target;
    while (steps.size() <= maximumLinks) {
        const ssize_t length = readlink(steps.last().constData(), target.data(), target.size());
        if (length < 0 || static_cast<std::size_t>(length) == target.size())
            return steps;
        const QByteArray next(target.data(), static_cast<qsizetype>(length));
        steps.append(next.startsWith('/') ? next : QByteArray(parentFolder(steps.last()) + "/" + next));
    }
    return {path};
}

QByteArray linkTarget(const QByteArray& path) {
    return linkSteps(path).last();
}

QByteArray parentFolder(const QByteArray& path) {
    const qsizetype slash = path.lastIndexOf('/');
    return slash <= 0 ? QByteArray("/") : path.left(slash);
}

std::optional<QByteArray> setFileAside(const QByteArray& path) {
    for (int number = 1; number <= maximumAsideNames; ++number) {
        QByteArray aside = path + ".unreadable";
        if (number > 1)
            aside += "-" + QByteArray::number(number);
        if (renameWithoutReplacing(path, aside))
            return aside;
        if (errno != EEXIST)
            return std::nullopt;
    }
    return std::nullopt;
}

} // namespace zelmo
