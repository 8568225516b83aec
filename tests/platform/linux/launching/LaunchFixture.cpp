#include "LaunchFixture.h"

#include <QDir>
#include <QTest>

#include <csignal>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zelmo::test {

namespace {

constexpr int longestWait = 20'000;

QSet<pid_t> childrenOf(pid_t parent) {
    QSet<pid_t> children;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        bool isNumber = false;
        const pid_t process = name.toInt(&isNumber);
        const auto state = isNumber ? stateOf(process) : std::nullopt;
        if (state && state->parent == parent)
            children.insert(process);
    }
    return children;
}

LaunchRecord parsed(const QByteArray& text) {
    LaunchRecord record;
    for (const QByteArray& line : text.split('\n')) {
        const qsizetype space = line.indexOf(' ');
        const QByteArray word = line.left(space);
        const QByteArray value = QByteArray::fromHex(line.mid(space + 1));
        if (word == "argument")
            record.arguments.append(value);
        else if (word == "variable")
            record.environment.insert(value.left(value.indexOf('=')), value.mid(value.indexOf('=') + 1));
        else if (word == "folder")
            record.folder = value;
        else if (word == "open")
            record.openFiles.append(value);
        else if (word == "process")
            record.process = value.toInt();
        else if (word == "parent")
            record.parent = value.toInt();
        else if (word == "session")
            record.session = value.toInt();
    }
    if (!record.arguments.isEmpty())
        record.program = record.arguments.takeFirst();
    std::sort(record.openFiles.begin(), record.openFiles.end());
    return record;
}

} // namespace

std::optional<ProcessState> stateOf(pid_t process) {
    const QByteArray text =
        TemporaryFolder::contentsOf("/proc/" + QByteArray::number(static_cast<qint64>(process)) + "/stat");
    // The name in parentheses may hold anything.
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    if (fields.size() < 2)
        return std::nullopt;
    return ProcessState{.parent = fields[1].toInt(), .isZombie = fields[0] == "Z"};
}

LaunchFixture::LaunchFixture() : m_record(m_folder.path("record")), m_otherChildren(childrenOf(getpid())) {
    if (prctl(PR_SET_CHILD_SUBREAPER, 1) != 0)
        qFatal("orphans don't come to the test");
    setVariable("HOME", m_folder.makeFolders("home"));
    setVariable("PATH", m_folder.makeFolders("commands"));
    setVariable("XDG_RUNTIME_DIR", m_folder.makeFolders("run"));
    setVariable("XDG_DATA_HOME", m_folder.makeFolders("data"));
    setVariable("XDG_DATA_DIRS", m_folder.path("data"));
    setVariable("LC_ALL", "C.UTF-8");
    setVariable("ZELMO_TEST_RECORD", m_record);
    // Where the sanitizers are to report.
    for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            setVariable(name, qgetenv(name));
    }
    m_program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

LaunchFixture::~LaunchFixture() {
    m_program.closeWriteChannel();
    if (m_program.state() != QProcess::NotRunning && !m_program.waitForFinished(longestWait))
        m_program.kill();
    m_program.waitForFinished(longestWait);
    for (const pid_t process : launchedProcesses()) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

void LaunchFixture::setVariable(const QByteArray& name, const QByteArray& value) {
    m_environment.insert(QString::fromUtf8(name), QString::fromUtf8(value));
}

QByteArray LaunchFixture::writeCommand(const QByteArray& name, const QByteArray& contents) const {
    const QByteArray path = m_folder.writeFile("commands/" + name, contents);
    chmod(path.constData(), 0755);
    return path;
}

QByteArray LaunchFixture::writeEntry(const QByteArray& name, const QByteArray& lines) const {
    return m_folder.writeFile(name, "[Desktop Entry]\nType=Application\n" + lines + '\n');
}

QByteArray LaunchFixture::writeRecordingEntry(const QByteArray& name, const QByteArray& arguments,
                                              const QByteArray& lines) const {
    return writeEntry(name, (lines.contains("Name=") ? lines : "Name=Plain\n" + lines) +
                                "\nExec=\"" ZELMO_RECORDING_PROGRAM "\" " + arguments);
}

QByteArray LaunchFixture::writeExecutable(const QByteArray& name) const {
    const QByteArray path = m_folder.writeFile(name, TemporaryFolder::contentsOf(ZELMO_RECORDING_PROGRAM));
    chmod(path.constData(), 0755);
    return path;
}

bool LaunchFixture::start() {
    m_program.setProcessEnvironment(m_environment);
    m_program.start(QStringLiteral(ZELMO_LAUNCHING_PROGRAM), QStringList());
    return m_program.waitForStarted(longestWait);
}

void LaunchFixture::read() {
    m_unread += m_program.readAllStandardOutput();
    for (qsizetype end = 0; (end = m_unread.indexOf('\n')) >= 0; m_unread.remove(0, end + 1)) {
        const QByteArray line = m_unread.left(end);
        if (line == "done")
            ++m_done;
        else
            m_notifications.append(line);
    }
}

bool LaunchFixture::tell(const QByteArray& command) {
    if (m_program.state() == QProcess::NotRunning && (m_told > 0 || !start()))
        return false;
    m_program.write(command + '\n');
    ++m_told;
    // The test's own services are asked meanwhile.
    return QTest::qWaitFor(
               [this] {
                   read();
                   return m_done == m_told || m_program.state() == QProcess::NotRunning;
               },
               longestWait) &&
           m_done == m_told;
}

std::optional<LaunchRecord> LaunchFixture::launch(const QByteArray& path) {
    unlink(m_record.constData());
    return open(path) ? waitForRecord() : std::nullopt;
}

std::optional<LaunchRecord> LaunchFixture::waitForRecord() {
    if (!QTest::qWaitFor([this] { return TemporaryFolder::exists(m_record); }, longestWait))
        return std::nullopt;
    return parsed(TemporaryFolder::contentsOf(m_record));
}

bool LaunchFixture::launchesNothing(const QByteArray& path) {
    unlink(m_record.constData());
    return open(path) && waitForEnds() && !TemporaryFolder::exists(m_record);
}

bool LaunchFixture::waitForEnds() const {
    return QTest::qWaitFor(
        [this] {
            // They belong to the launching program or, at the latest once the command is done, to the test.
            const QSet<pid_t> processes = launchedProcesses();
            return std::all_of(processes.cbegin(), processes.cend(), [](pid_t process) {
                const auto state = stateOf(process);
                return !state || state->isZombie;
            });
        },
        longestWait);
}

QList<QByteArray> LaunchFixture::notifications() {
    read();
    return m_notifications;
}

QSet<pid_t> LaunchFixture::launchedProcesses() const {
    QSet<pid_t> processes = childrenOf(getpid()) - m_otherChildren;
    const auto program = static_cast<pid_t>(m_program.processId());
    if (program > 0) {
        processes.unite(childrenOf(program));
        processes.remove(program);
    }
    return processes;
}

} // namespace zelmo::test
