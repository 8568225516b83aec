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

QByteArray fileName(const QByteArray& path) {
    return path.mid(path.lastIndexOf('/') + 1);
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

// The file name of the program that a script's first line asks for; empty for what is no script.
QByteArray interpreterOf(const QByteArray& script) {
    const QByteArray contents = fileAt(script);
    if (!contents.startsWith("#!"))
        return {};
    const QList<QByteArray> words = contents.mid(2, contents.indexOf('\n') - 2).simplified().split(' ');
    return fileName(words[0]) == "env" ? fileName(words.value(1)) : fileName(words[0]);
}

// The interpreter may be named by a link, as "python3" is one to "python3.11" and "sh" to "dash".
bool isInterpretedBy(const QByteArray& script, const QByteArray& executable, const QByteArray& calledName) {
    const QByteArray interpreter = interpreterOf(script);
    return !interpreter.isEmpty() && (fileName(calledName) == interpreter || fileName(executable) == interpreter);
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
    if (arguments.size() > 1 && arguments[1].startsWith('/') &&
        isInterpretedBy(arguments[1], facts.executable, arguments[0]))
        facts.script = arguments[1];
    facts.launchedEntry = launchedEntryOf(fileAt(folder + "/environ"), process);
    facts.sandboxEntryId = flatpakEntryId(fileAt(folder + "/root/.flatpak-info"));
    if (facts.sandboxEntryId.isEmpty())
        facts.sandboxEntryId = snapEntryId(fileAt(folder + "/cgroup"));
    return facts;
}

} // namespace zelmo
