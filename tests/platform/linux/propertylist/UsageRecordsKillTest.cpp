#include "PreferencesFileFixture.h"
#include "catalog/AppUsage.h"
#include "preferences/Preferences.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTest>

#include <csignal>
#include <ctime>
#include <string_view>
#include <sys/wait.h>

using namespace zelmo;

namespace {

constexpr int kills = 1000;
constexpr int applications = 50;
constexpr const char* writerArgument = "--launch-until-killed";

LaunchableApp application(int number) {
    const FileUrl url = FileUrl::fromPath(QStringLiteral("/Applications/%1.app").arg(number));
    return {.id = url, .name = {}, .url = url, .icon = {}};
}

// Counts launches of one application after the other, and tells how many there were in all after each one is saved.
int launchUntilKilled(const char* path) {
    PlistPreferencesFile file(FileUrl::fromNativePath(path));
    Preferences preferences(file);
    AppUsage usage(preferences, 1, UsageClocks::system());
    std::int64_t count = 0;
    for (const AppUsageRecord& record : usage.records())
        count += record.launchCount;
    do {
        if (write(STDOUT_FILENO, &count, sizeof count) != sizeof count)
            return 1;
        usage.recordLaunch(application(static_cast<int>(count++ % applications)));
    } while (true);
}

// A program like this one that is killed after a random time.
class Writer {
public:
    explicit Writer(const QByteArray& path) {
        int ends[2];
        if (pipe(ends) != 0)
            qFatal("no pipe");
        m_process = fork();
        if (m_process == 0) {
            dup2(ends[1], STDOUT_FILENO);
            close(ends[0]);
            close(ends[1]);
            execl("/proc/self/exe", "writer", writerArgument, path.constData(), nullptr);
            _exit(127);
        }
        close(ends[1]);
        m_told = ends[0];
        waitForCount();
    }
    ~Writer() { close(m_told); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    // The count that it last told of.
    std::int64_t killAfter(long nanoseconds) {
        const timespec moment{.tv_sec = 0, .tv_nsec = nanoseconds};
        nanosleep(&moment, nullptr);
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        while (waitForCount()) {
        }
        return m_count;
    }

private:
    bool waitForCount() { return read(m_told, &m_count, sizeof m_count) == sizeof m_count; }

    pid_t m_process = -1;
    int m_told = -1;
    std::int64_t m_count = -1;
};

} // namespace

class UsageRecordsKillTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noSavedLaunchIsLostWheneverTheProgramIsKilled() {
        const TemporaryFolder folder;
        const QByteArray path = folder.path("config/p.plist");
        QRandomGenerator random(11);
        std::int64_t told = 0;
        for (int i = 0; i < kills; ++i) {
            told = Writer(path).killAfter(random.bounded(1, 4'000'000));
            QVERIFY(told >= 0);
            PlistPreferencesFile file(FileUrl::fromNativePath(path));
            const PreferenceValues values = file.read();
            if (told == 0 && values.isEmpty())
                continue;
            const auto data = values.value(nameOf(Key::appUsageRecords));
            QVERIFY(std::holds_alternative<QByteArray>(data));
            const auto records = decodeUsageRecords(std::get<QByteArray>(data));
            QVERIFY(records);
            std::int64_t count = 0;
            for (const AppUsageRecord& record : *records)
                count += record.launchCount;
            // The launch that was being saved may be there or not.
            QVERIFY2(count == told || count == told + 1, qPrintable(QStringLiteral("%1 of %2").arg(count).arg(told)));
        }
        QVERIFY2(told > kills / 10, "hardly a launch was ever saved");
        QCOMPARE(entriesOf(folder.path("config")), QStringList{QStringLiteral("p.plist")});
    }
};

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    if (argc == 3 && std::string_view(argv[1]) == writerArgument)
        return launchUntilKilled(argv[2]);
    UsageRecordsKillTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "UsageRecordsKillTest.moc"
