#include "platform/linux/trash/IncomingItem.h"

#include "platform/linux/files/RegularFile.h"

#include <QStringBuilder>

#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>

#include <glib.h>

namespace zelmo {

namespace {

constexpr const char* incomingPrefix = ".incoming-";
constexpr const char* informationSuffix = ".trashinfo";
constexpr qsizetype longestName = 255;
constexpr int maximumNames = 10'000;
constexpr std::size_t informationLimit = 64 * 1024;

struct TextDeleter {
    void operator()(gchar* text) const { g_free(text); }
};
using Text = std::unique_ptr<gchar, TextDeleter>;

struct DateDeleter {
    void operator()(GDateTime* date) const { g_date_time_unref(date); }
};

// The path is written as the bytes that it has, each that is not plain as %XX.
QByteArray informationOf(const QByteArray& original) {
    const std::unique_ptr<GDateTime, DateDeleter> now(g_date_time_new_now_local());
    const Text date(g_date_time_format(now.get(), "%Y-%m-%dT%H:%M:%S"));
    const Text path(g_uri_escape_string(original.constData(), "/", FALSE));
    return QByteArray("[Trash Info]\nPath=") + path.get() + "\nDeletionDate=" + date.get() + "\n";
}

// "Notes.app", "Notes.2.app" and so on, cut to what leaves room for the number and the information's suffix.
QByteArray numberedName(const QByteArray& name, int number) {
    const qsizetype dot = name.lastIndexOf('.');
    const QByteArray extension = dot > 0 && name.size() - dot <= 16 ? name.mid(dot) : QByteArray();
    const QByteArray end = (number > 1 ? "." + QByteArray::number(number) : QByteArray()) + extension;
    const qsizetype room = longestName - static_cast<qsizetype>(qstrlen(informationSuffix)) - end.size();
    return name.left(std::min(name.size() - extension.size(), room)) + end;
}

bool exists(const QByteArray& path) {
    struct stat status {};
    return lstat(path.constData(), &status) == 0;
}

bool makeNewFile(const QByteArray& path, const QByteArray& contents) {
    const FileDescriptor file(open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file.isValid())
        return false;
    if (write(file.value(), contents.constData(), static_cast<std::size_t>(contents.size())) == contents.size())
        return true;
    unlink(path.constData());
    errno = ENOSPC;
    return false;
}

// False with EEXIST when `to` exists.
bool renameWithoutReplacing(const QByteArray& from, const QByteArray& to) {
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // A file system without that operation: the name is reserved among those who keep to the rules of the Trash.
    if (exists(to)) {
        errno = EEXIST;
        return false;
    }
    return rename(from.constData(), to.constData()) == 0;
}

void removeTree(const QByteArray& path) {
    std::error_code error;
    std::filesystem::remove_all(path.toStdString(), error);
}

// Whoever is not through to the end has announced what is not there. The note in the private folder tells its
// information from that of others.
void removeUnfulfilledInformation(const QByteArray& trashFolder, const QByteArray& incoming) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(incoming.constData()), closedir);
    if (!folder)
        return;
    while (const dirent* entry = readdir(folder.get())) {
        const QByteArray note(entry->d_name);
        if (!note.endsWith(informationSuffix))
            continue;
        const QByteArray information = trashFolder + "/info/" + note;
        const FileContents expected = readRegularFile(incoming + "/" + note, informationLimit);
        const FileContents found = readRegularFile(information, informationLimit);
        const QByteArray item = note.chopped(static_cast<qsizetype>(qstrlen(informationSuffix)));
        if (found.status == FileReadStatus::read && found.bytes == expected.bytes &&
            !exists(trashFolder + "/files/" + item))
            unlink(information.constData());
    }
}

} // namespace

IncomingItem::IncomingItem(QByteArray trashFolder) : m_trashFolder(std::move(trashFolder)) {}

IncomingItem::~IncomingItem() {
    if (!m_folder.isEmpty())
        removeTree(m_folder);
}

bool IncomingItem::prepare() {
    for (const char* folder : {"/files", "/info"}) {
        if (g_mkdir_with_parents(QByteArray(m_trashFolder + folder).constData(), 0700) != 0)
            return false;
    }
    QByteArray folder = m_trashFolder + "/" + incomingPrefix + "XXXXXX";
    if (!mkdtemp(folder.data()))
        return false;
    m_folder = folder;
    m_path = m_folder + "/item";
    // The lock tells a living process's folder from an abandoned one.
    m_lock.reset(open(m_folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!m_lock.isValid())
        return false;
    flock(m_lock.value(), LOCK_EX | LOCK_NB);
    return true;
}

bool IncomingItem::publish(const QByteArray& original) {
    const QByteArray name = original.mid(original.lastIndexOf('/') + 1);
    const QByteArray information = informationOf(original);
    for (int number = 1; number <= maximumNames; ++number) {
        switch (publishAs(numberedName(name, number), information)) {
        case Attempt::published:
            if (syncfs(m_lock.value()) == 0)
                return true;
            withdraw();
            return false;
        case Attempt::nameTaken:
            break;
        case Attempt::failed:
            return false;
        }
    }
    return false;
}

IncomingItem::Attempt IncomingItem::publishAs(const QByteArray& name, const QByteArray& information) {
    const QByteArray note = m_folder + "/" + name + informationSuffix;
    const QByteArray listed = m_trashFolder + "/info/" + name + informationSuffix;
    const QByteArray target = m_trashFolder + "/files/" + name;
    if (!makeNewFile(note, information))
        return Attempt::failed;
    // The information takes the name; whoever finds it taken looks for another one.
    if (makeNewFile(listed, information)) {
        if (renameWithoutReplacing(m_path, target)) {
            m_path = target;
            m_information = listed;
            return Attempt::published;
        }
        const int reason = errno;
        unlink(listed.constData());
        errno = reason;
    }
    const Attempt result = errno == EEXIST ? Attempt::nameTaken : Attempt::failed;
    unlink(note.constData());
    return result;
}

void IncomingItem::withdraw() {
    const QByteArray taken = m_folder + "/item";
    if (m_information.isEmpty() || rename(m_path.constData(), taken.constData()) != 0)
        return;
    unlink(m_information.constData());
    m_information.clear();
    m_path = taken;
}

void IncomingItem::removeAbandoned(const QByteArray& trashFolder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(trashFolder.constData()), closedir);
    if (!folder)
        return;
    while (const dirent* entry = readdir(folder.get())) {
        const QByteArray name(entry->d_name);
        if (!name.startsWith(incomingPrefix))
            continue;
        const QByteArray incoming = trashFolder + "/" + name;
        const FileDescriptor lock(open(incoming.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!lock.isValid() || flock(lock.value(), LOCK_EX | LOCK_NB) != 0)
            continue;
        removeUnfulfilledInformation(trashFolder, incoming);
        removeTree(incoming);
    }
}

} // namespace zelmo
