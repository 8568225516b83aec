#include "PreferencesFileFixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <chrono>
#include <csignal>
#include <string_view>
#include <sys/wait.h>
#include <thread>

using namespace zelmo;

namespace {

constexpr int kills = 100;
constexpr const char* writerArgument = "--write-until-killed";

QByteArray writtenData(double number) {
    return QByteArray(200'000 + static_cast<int>(number) % 7 * 1000, 'x');
}

// Two values that always agree, in a file that takes more than a moment to write.
int writeUntilKilled(const char* path) {
    PlistPreferencesFile file(FileUrl::fromNativePath(path));
    double number = 0;
    const PreferenceValues before = file.read();
    if (before.contains(nameOf(Key::titleFontSize)))
        number = std::get<double>(before.value(nameOf(Key::titleFontSize)));
    // Tells that the loop begins.
    if (write(STDOUT_FILENO, "x", 1) != 1)
        return 1;
    for (;;) {
        ++number;
        if (!file.write({{nameOf(Key::titleFontSize), number},
                         {nameOf(Key::searchFontSize), number},
                         {nameOf(Key::appUsageRecords), writtenData(number)}}))
            return 1;
    }
}

// On this machine, in this build.
qint64 nanosecondsOfAWrite(const QByteArray& path) {
    PlistPreferencesFile file(FileUrl::fromNativePath(path));
    QElapsedTimer clock;
    clock.start();
    if (!file.write({{nameOf(Key::appUsageRecords), writtenData(0)}}))
        qFatal("%s can't be written", path.constData());
    return clock.nsecsElapsed();
}

// Starts this program as a writer, and returns when it has begun.
pid_t startWriter(const QByteArray& path) {
    int ends[2];
    if (pipe(ends) != 0)
        return -1;
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        execl("/proc/self/exe", "writer", writerArgument, path.constData(), nullptr);
        _exit(127);
    }
    close(ends[1]);
    char begun = 0;
    const bool started = read(ends[0], &begun, 1) == 1;
    close(ends[0]);
    return started ? child : -1;
}

} // namespace

class PlistPreferencesKillTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aWriterMayBeKilledAtAnyMoment() {
        const TemporaryFolder folder;
        const QByteArray path = folder.path("config/p.plist");
        const qint64 longest = 4 * nanosecondsOfAWrite(folder.path("trial/p.plist"));
        QRandomGenerator random(7);
        double last = 0;
        int killedWhileWriting = 0;
        for (int i = 0; i < kills; ++i) {
            const pid_t child = startWriter(path);
            QVERIFY(child > 0);
            // The moment is what is tried out here; nothing is waited for.
            std::this_thread::sleep_for(std::chrono::nanoseconds(random.bounded(qint64{1}, longest)));
            kill(child, SIGKILL);
            int status = 0;
            QCOMPARE(waitpid(child, &status, 0), child);
            QVERIFY(WIFSIGNALED(status));

            const QStringList entries = entriesOf(folder.path("config"));
            QVERIFY2(entries.size() <= 2, qPrintable(entries.join(u' ')));
            killedWhileWriting += entries.contains(QStringLiteral("p.plist")) && entries.size() == 2 ? 1 : 0;
            if (!TemporaryFolder::exists(path))
                continue;
            const PreferenceValues values = storedIn(FileUrl::fromNativePath(path));
            QCOMPARE(values.size(), 3);
            const double number = std::get<double>(values.value(nameOf(Key::titleFontSize)));
            QCOMPARE(std::get<double>(values.value(nameOf(Key::searchFontSize))), number);
            QCOMPARE(std::get<QByteArray>(values.value(nameOf(Key::appUsageRecords))), writtenData(number));
            QVERIFY(number >= last);
            last = number;
        }
        QVERIFY2(last > 0 && killedWhileWriting > 0, "no writer was met at work");
        QCOMPARE(entriesOf(folder.path("config")), QStringList{QStringLiteral("p.plist")});
    }

    void whatALivingWriterPreparesIsLeftAlone() {
        const TemporaryFolder folder;
        const QByteArray path = folder.path("config/p.plist");
        const pid_t child = startWriter(path);
        QVERIFY(child > 0);
        for (int i = 0; i < 300; ++i)
            const PlistPreferencesFile starting(FileUrl::fromNativePath(path));
        // It gives up when a write fails.
        int status = 0;
        const pid_t ended = waitpid(child, &status, WNOHANG);
        kill(child, SIGKILL);
        if (ended == 0)
            waitpid(child, &status, 0);
        QCOMPARE(ended, 0);
    }
};

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    if (argc == 3 && std::string_view(argv[1]) == writerArgument)
        return writeUntilKilled(argv[2]);
    PlistPreferencesKillTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "PlistPreferencesKillTest.moc"
