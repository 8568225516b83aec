#include "platform/linux/files/ObservedWatcher.h"

#include <QRegularExpression>
#include <QScopeGuard>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/inotify.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace zelmo;

namespace {

int watchCount() {
    int count = 0;
    const QStringList entries = QDir(QStringLiteral("/proc/self/fdinfo")).entryList(QDir::Files);
    for (const QString& entry : entries)
        count +=
            static_cast<int>(TemporaryFolder::contentsOf("/proc/self/fdinfo/" + entry.toLatin1()).count("inotify wd:"));
    return count;
}

bool isWatched(const FileUrl& folder) {
    struct stat status {};
    if (stat(folder.nativePath().constData(), &status) != 0)
        return false;
    const QByteArray mark = " ino:" + QByteArray::number(static_cast<qulonglong>(status.st_ino), 16) + " ";
    const QStringList entries = QDir(QStringLiteral("/proc/self/fdinfo")).entryList(QDir::Files);
    return std::any_of(entries.cbegin(), entries.cend(), [&](const QString& entry) {
        const QByteArray information = TemporaryFolder::contentsOf("/proc/self/fdinfo/" + entry.toLatin1());
        return information.contains("inotify wd:") && information.contains(mark);
    });
}

// How many watches the system allows.
std::optional<int> systemsLimit;

enum class Queues { granted, refused };
Queues queues = Queues::granted;

} // namespace

// The kernel's own limit counts for a whole user and can be lowered only where user namespaces can be made, which
// many containers forbid. So this program refuses in the kernel's place: the watcher calls these functions.
extern "C" int inotify_init1(int flags) noexcept {
    if (queues == Queues::refused) {
        errno = EMFILE;
        return -1;
    }
    return static_cast<int>(syscall(SYS_inotify_init1, flags));
}

extern "C" int inotify_add_watch(int queue, const char* path, std::uint32_t mask) noexcept {
    if (systemsLimit && watchCount() >= *systemsLimit && !isWatched(FileUrl::fromNativePath(path))) {
        errno = ENOSPC;
        return -1;
    }
    return static_cast<int>(syscall(SYS_inotify_add_watch, queue, path, mask));
}

class InotifyFolderLimitTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFirstFoldersAreWatchedWhenThereAreTooMany() {
        const TemporaryFolder folder;
        QList<FileUrl> folders;
        for (int i = 0; i < 100; ++i)
            folders.append(FileUrl::fromNativePath(folder.makeFolders("f" + QByteArray::number(i))));
        const auto depth = static_cast<int>(folder.path().count('/') + 1);
        const int before = watchCount();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Too many folders")));
        ObservedWatcher observed(folders, 10 + depth);
        QCOMPARE(watchCount() - before, 10 + depth);
        QVERIFY(observed.sees([&] { folder.writeFile("f0/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("f9/file", "x"); }));
        QVERIFY(observed.ignores([&] { folder.writeFile("f10/file", "x"); }));
        std::reverse(folders.begin(), folders.end());
        observed.watcher.setFolders(folders);
        QCOMPARE(watchCount() - before, 10 + depth);
        QVERIFY(observed.sees([&] { folder.writeFile("f99/file", "x"); }));
        QVERIFY(observed.ignores([&] { folder.writeFile("f9/second", "x"); }));
    }

    void theSystemsLimitLeavesTheFirstFoldersWatched() {
        const TemporaryFolder folder;
        QList<FileUrl> folders;
        for (int i = 0; i < 60; ++i)
            folders.append(FileUrl::fromNativePath(folder.makeFolders("f" + QByteArray::number(i))));
        InotifyFolderWatcher watcher;
        systemsLimit = watchCount() + 20;
        const auto restore = qScopeGuard([] { systemsLimit.reset(); });
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Too many folders")));
        watcher.setFolders(folders);
        QCOMPARE(watchCount(), *systemsLimit);
        QVERIFY(isWatched(folders.first()));
        QVERIFY(!isWatched(folders.last()));
        std::reverse(folders.begin(), folders.end());
        watcher.setFolders(folders);
        QCOMPARE(watchCount(), *systemsLimit);
        QVERIFY(isWatched(folders.first()));
        QVERIFY(!isWatched(folders.last()));
    }

    void aUserWithTooManyQueuesWatchesNothingAndIsTold() {
        const TemporaryFolder folder;
        const int before = watchCount();
        queues = Queues::refused;
        const auto restore = qScopeGuard([] { queues = Queues::granted; });
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^Folders can't be watched: ")));
        InotifyFolderWatcher watcher;
        watcher.setFolders({FileUrl::fromNativePath(folder.path())});
        QCOMPARE(watchCount(), before);
    }

    void nothingIsLeftBehindNorInherited() {
        const TemporaryFolder folder;
        folder.makeFolders("a");
        const int before = watchCount();
        {
            const ObservedWatcher observed({folder.url("a"), folder.url("missing/b")});
            QVERIFY(watchCount() > before);
            const QStringList entries = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::System | QDir::Files);
            int found = 0;
            for (const QString& entry : entries) {
                const QString target = QFile::symLinkTarget(QStringLiteral("/proc/self/fd/") + entry);
                if (!target.contains(QLatin1StringView("inotify")))
                    continue;
                ++found;
                QVERIFY(fcntl(entry.toInt(), F_GETFD) & FD_CLOEXEC);
            }
            QVERIFY(found > 0);
        }
        QCOMPARE(watchCount(), before);
    }

    void theSameFoldersAgainChangeNothing() {
        const TemporaryFolder folder;
        QList<FileUrl> folders;
        for (int i = 0; i < 1000; ++i)
            folders.append(FileUrl::fromNativePath(folder.makeFolders("f" + QByteArray::number(i))));
        ObservedWatcher observed(folders);
        const int watches = watchCount();
        for (int i = 0; i < 1000; ++i)
            observed.watcher.setFolders(folders);
        QCOMPARE(watchCount(), watches);
        folders.append(folder.url("one more"));
        observed.watcher.setFolders(folders);
        QCOMPARE(watchCount(), watches);
        QVERIFY(observed.sees([&] { folder.writeFile("f500/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.makeFolders("one more"); }));
    }
};

QTEST_GUILESS_MAIN(InotifyFolderLimitTest)
#include "InotifyFolderLimitTest.moc"
