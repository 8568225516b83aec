#include "platform/linux/identity/ProcessFacts.h"

#include "platform/linux/files/RegularFile.h"

#include <QList>

#include <array>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

namespace zelmo {

namespace {

constexpr std::size_t sizeLimit = 1024 * 1024;

QByteArray fileAt(const QByteArray& path) {
    FileContents contents = readRegularFile(AT_FDCWD, path.constData(), sizeLimit);
    return contents.status == FileReadStatus::read ? std::move(contents.bytes) : QByteArray();
}

QByteArray linkAt(const QByteArray& path) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = readlink(path.constData(), target.data(), target.size());
    QByteArray file = length > 0 ? QByteArray(target.data(), length) : QByteArray();
    // An update that replaced the file under the running program.
    constexpr QByteArrayView deleted(" (deleted)");
    if (file.endsWith(deleted))
        file.chop(deleted.size());
    return file;
}

QByteArray variable(const QByteArray& environment, QByteArrayView name) {
    for (const QByteArray& line : environment.split('\0')) {
        if (line.startsWith(name) && line.size() > name.size() && line[name.size()] == '=')
            return line.mid(name.size() + 1);
    }
    return {};
}

QByteArray launchedEntryOf(const QByteArray& environment, std::int64_t process) {
    if (variable(environment, "GIO_LAUNCHED_DESKTOP_FILE_PID") != QByteArray::number(static_cast<qint64>(process)))
        return {};
    return variable(environment, "GIO_LAUNCHED_DESKTOP_FILE");
}

QByteArray flatpakEntryId(const QByteArray& information) {
    bool inGroup = false;
    for (const QByteArray& line : information.split('\n')) {
        if (line.startsWith('['))
            inGroup = line.trimmed() == "[Application]";
        else if (inGroup && line.startsWith("name="))
            return line.mid(5).trimmed() + ".desktop";
    }
    return {};
}

// A control group such as "snap.firefox.firefox.1b2c-….scope": the package, then the program.
QByteArray snapEntryId(const QByteArray& controlGroups) {
    for (const QByteArray& line : controlGroups.split('\n')) {
        const QByteArray group = line.mid(line.lastIndexOf('/') + 1);
        const QList<QByteArray> parts = group.split('.');
        if (parts.size() >= 4 && parts[0] == "snap" && (parts.last() == "scope" || parts.last() == "service"))
            return parts[1] + '_' + parts[2] + ".desktop";
    }
    return {};
}

} // namespace

ProcessFacts ProcessFacts::read(std::int64_t process, const QByteArray& processes) {
    const QByteArray folder = processes + '/' + QByteArray::number(static_cast<qint64>(process));
    ProcessFacts facts{.executable = linkAt(folder + "/exe"), .script = {}, .launchedEntry = {}, .sandboxEntryId = {}};
    const QList<QByteArray> arguments = fileAt(folder + "/cmdline").split('\0');
    if (arguments.size() > 1 && arguments[1].startsWith('/'))
        facts.script = arguments[1];
    facts.launchedEntry = launchedEntryOf(fileAt(folder + "/environ"), process);
    facts.sandboxEntryId = flatpakEntryId(fileAt(folder + "/root/.flatpak-info"));
    if (facts.sandboxEntryId.isEmpty())
        facts.sandboxEntryId = snapEntryId(fileAt(folder + "/cgroup"));
    return facts;
}

} // namespace zelmo
