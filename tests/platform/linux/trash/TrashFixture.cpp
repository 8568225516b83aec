#include "TrashFixture.h"

#include <QDir>
#include <QProcess>

#include <fcntl.h>
#include <filesystem>
#include <sys/xattr.h>

namespace zelmo::test {

namespace fs = std::filesystem;

namespace {

constexpr unsigned nobody = 65534;

dev_t deviceOf(const QByteArray& path) {
    struct stat status {};
    return stat(path.constData(), &status) == 0 ? status.st_dev : 0;
}

QList<QByteArray> namesIn(const QByteArray& folder) {
    QList<QByteArray> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder.toStdString(), error))
        names.append(QByteArray::fromStdString(entry.path().filename().string()));
    std::sort(names.begin(), names.end());
    return names;
}

void giveTo(const QByteArray& folder) {
    const auto give = [](const fs::path& path) {
        if (lchown(path.c_str(), nobody, nobody) != 0)
            qFatal("%s can't be handed over", path.c_str());
    };
    give(folder.toStdString());
    for (const auto& entry : fs::recursive_directory_iterator(folder.toStdString()))
        give(entry.path());
}

} // namespace

TrashFixture::TrashFixture(Place place) : m_environment(QProcessEnvironment::systemEnvironment()) {
    const QString shared = QStringLiteral("/dev/shm");
    if (place == Place::otherFileSystem) {
        m_possible = deviceOf("/dev/shm") != 0 && deviceOf("/dev/shm") != deviceOf(m_home.path()) &&
                     access("/dev/shm", W_OK) == 0;
        m_applications = std::make_unique<TemporaryFolder>(m_possible ? shared : QDir::tempPath());
    } else {
        m_applications = std::make_unique<TemporaryFolder>();
    }
    m_home.makeFolders("data");
    const QString home = QString::fromUtf8(m_home.path());
    m_environment.insert(QStringLiteral("HOME"), home);
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), home + QStringLiteral("/data"));
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home + QStringLiteral("/run"));
    m_home.makeFolders("run");
    chmod(m_home.path("run").constData(), 0700);
    m_environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    m_environment.remove(QStringLiteral("DISPLAY"));
}

QByteArray TrashFixture::makeBundle(const QByteArray& name) const {
    const TemporaryFolder& folder = *m_applications;
    const QByteArray program = folder.writeFile(name + "/Contents/Linux/program", QByteArray(100'000, 'p'));
    chmod(program.constData(), 0751);
    folder.writeFile(name + "/Contents/Info.plist", "<plist/>");
    chmod(folder.path(name + "/Contents/Info.plist").constData(), 0400);
    folder.link(name + "/Contents/Current", "Linux/program");
    folder.link(name + "/Contents/Nowhere", "/no/such/file");
    if (::link(program.constData(), folder.path(name + "/Contents/Second").constData()) != 0)
        qFatal("no second name can be made");
    const QByteArray hole = folder.writeFile(name + "/Contents/Hole", "start");
    if (truncate(hole.constData(), 4'000'000) != 0)
        qFatal("no hole can be made");
    const timespec past[2] = {{.tv_sec = 1'000'000'000, .tv_nsec = 123'456'789},
                              {.tv_sec = 1'000'000'001, .tv_nsec = 987'654'321}};
    utimensat(AT_FDCWD, program.constData(), past, 0);
    // Not every file system keeps these; the picture then shows none before and after.
    setxattr(program.constData(), "user.note", "kept", 4, 0);
    folder.makeFolders(name + "/Contents/Empty");
    chmod(folder.path(name + "/Contents/Empty").constData(), 0711);
    return folder.path(name);
}

void TrashFixture::handOver() const {
    if (geteuid() != 0)
        return;
    giveTo(m_home.path());
    giveTo(m_applications->path());
}

QList<QByteArray> TrashFixture::move(const QList<QByteArray>& paths) const {
    handOver();
    return moveAsItIs(paths);
}

QList<QByteArray> TrashFixture::moveAsItIs(const QList<QByteArray>& paths) const {
    QByteArray input;
    for (const QByteArray& path : paths)
        input += path.toPercentEncoding("/") + '\n';
    const auto output = run({QStringLiteral(ZELMO_TRASH_MOVER), QStringLiteral("--ordinary-user")}, input);
    return output ? output->trimmed().split('\n') : QList<QByteArray>();
}

std::optional<QByteArray> TrashFixture::run(const QStringList& command, const QByteArray& input) const {
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(QString::fromUtf8(m_applications->path()));
    process.start(command.first(), command.mid(1));
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(100'000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        qInfo("%s: %s %s", qPrintable(command.first()), qPrintable(process.errorString()),
              process.readAllStandardError().constData());
        return std::nullopt;
    }
    return process.readAllStandardOutput();
}

QList<TrashedItem> TrashFixture::items() const {
    QList<TrashedItem> items;
    for (const QByteArray& name : namesIn(trashFolder() + "/files")) {
        const QByteArray information = TemporaryFolder::contentsOf(trashFolder() + "/info/" + name + ".trashinfo");
        const QList<QByteArray> lines = information.split('\n');
        if (lines.size() < 3 || lines[0] != "[Trash Info]" || !lines[1].startsWith("Path=") ||
            !lines[2].startsWith("DeletionDate="))
            continue;
        items.append({name, QByteArray::fromPercentEncoding(lines[1].mid(5)), lines[2].mid(13)});
    }
    return items;
}

QList<QByteArray> TrashFixture::leftovers() const {
    QList<QByteArray> expected;
    for (const TrashedItem& item : items())
        expected << item.name << item.name + ".trashinfo";
    QList<QByteArray> found =
        namesIn(trashFolder()) + namesIn(trashFolder() + "/files") + namesIn(trashFolder() + "/info");
    for (const QByteArray& name : expected + QList<QByteArray>{"files", "info"})
        found.removeOne(name);
    return found;
}

} // namespace zelmo::test
