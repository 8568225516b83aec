#pragma once

#include "TemporaryFolder.h"

#include <QHash>
#include <QProcess>
#include <QSet>

#include <optional>

namespace zelmo::test {

// What a launched program found itself in.
struct LaunchRecord {
    QList<QByteArray> arguments; // without the program's own name
    QByteArray program;
    QHash<QByteArray, QByteArray> environment;
    QByteArray folder;
    QList<QByteArray> openFiles; // the number and what it stands for
    pid_t process = 0;
    pid_t parent = 0;
    pid_t session = 0;
};

// A folder with applications and a program that launches them. Processes without a parent come to the test, which ends
// them with the fixture.
class LaunchFixture {
public:
    LaunchFixture();
    ~LaunchFixture();
    LaunchFixture(const LaunchFixture&) = delete;
    LaunchFixture& operator=(const LaunchFixture&) = delete;

    const TemporaryFolder& folder() const { return m_folder; }
    // Of the launching program; before it is started.
    void setVariable(const QByteArray& name, const QByteArray& value);
    // The launching program sees nobody else's commands.
    QByteArray writeCommand(const QByteArray& name, const QByteArray& contents) const;
    // An entry with these lines besides the necessary ones.
    QByteArray writeEntry(const QByteArray& name, const QByteArray& lines) const;
    // The same, whose program writes the record, with these arguments as they stand in the entry.
    QByteArray writeRecordingEntry(const QByteArray& name, const QByteArray& arguments = {},
                                   const QByteArray& lines = {}) const;
    // Writes the record, too, with an `Info.plist` that names it when the name isn't empty.
    QByteArray writeExecutable(const QByteArray& name) const;

    // Has the launching program do this; returns when it has, false when it could not.
    bool tell(const QByteArray& command);
    bool open(const QByteArray& path) { return tell(path.toPercentEncoding("/")); }
    // Opens the application and waits for its program.
    std::optional<LaunchRecord> launch(const QByteArray& path);
    std::optional<LaunchRecord> waitForRecord();
    // Opens the application; whether it did so, and no program wrote the record.
    bool launchesNothing(const QByteArray& path);
    // What the launching program has said about its notifier so far.
    QList<QByteArray> notifications();

    QProcess& launchingProgram() { return m_program; }
    // Those that the launching program has begun and nobody has waited for, ended or not.
    QSet<pid_t> launchedProcesses() const;
    // Until all of them have ended.
    bool waitForEnds() const;

private:
    bool start();
    void read();

    TemporaryFolder m_folder;
    QByteArray m_record;
    QProcessEnvironment m_environment;
    QProcess m_program;
    QSet<pid_t> m_otherChildren;
    QByteArray m_unread;
    QList<QByteArray> m_notifications;
    int m_done = 0;
    int m_told = 0;
};

// The parent of a process and whether it is a zombie; nothing when there is none.
struct ProcessState {
    pid_t parent;
    bool isZombie;
};
std::optional<ProcessState> stateOf(pid_t process);

} // namespace zelmo::test
