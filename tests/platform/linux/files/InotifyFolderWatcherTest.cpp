#include "platform/linux/files/InotifyFolderWatcher.h"
#include "TemporaryFolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QScopeGuard>
#include <QTest>

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace zelmo;

namespace {

void remove(const QByteArray& path) {
    QDir(QString::fromUtf8(path)).removeRecursively();
}

// A watcher that counts its calls. Before a change is made, what is still on its way from earlier ones
// is let through, up to and with a change in a folder of its own that tells that nothing came before.
class Observed {
public:
    explicit Observed(const QList<FileUrl>& folders, qsizetype limit = InotifyFolderWatcher::standardLimit)
        : watcher(limit) {
        watcher.setChangeHandler([this] { ++calls; });
        watcher.setFolders(folders);
    }

    // Whether the change is told of.
    bool sees(const std::function<void()>& change) {
        settle();
        calls = 0;
        change();
        return QTest::qWaitFor([this] { return calls > 0; }, 2000);
    }

    // Whether the change is kept quiet: a second watcher, asked after the first, has told of a later one.
    bool ignores(const std::function<void()>& change) {
        settle();
        calls = 0;
        change();
        settle();
        return calls == 0;
    }

    InotifyFolderWatcher watcher;
    int calls = 0;

private:
    void settle() {
        bool reached = false;
        InotifyFolderWatcher probe;
        const TemporaryFolder folder;
        probe.setChangeHandler([&] { reached = true; });
        probe.setFolders({FileUrl::fromNativePath(folder.path())});
        folder.writeFile("probe", "x");
        if (!QTest::qWaitFor([&] { return reached; }, 2000))
            qFatal("No change is told of at all");
        // Every notifier that was due in the same round of the event loop has been served after one more.
        QCoreApplication::processEvents();
    }
};

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

} // namespace

// The kernel's own limit counts for a whole user and can be lowered only where user namespaces can be made, which
// many containers forbid. So this program refuses in the kernel's place: the watcher calls this function.
extern "C" int inotify_add_watch(int queue, const char* path, std::uint32_t mask) noexcept {
    if (systemsLimit && watchCount() >= *systemsLimit && !isWatched(FileUrl::fromNativePath(path))) {
        errno = ENOSPC;
        return -1;
    }
    return static_cast<int>(syscall(SYS_inotify_add_watch, queue, path, mask));
}

class InotifyFolderWatcherTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyKindOfChangeInAFolderIsTold() {
        const TemporaryFolder folder;
        folder.makeFolders("watched");
        folder.writeFile("watched/old", "x");
        Observed observed({folder.url("watched")});
        QVERIFY(observed.sees([&] { folder.writeFile("watched/new", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("watched/old", "other"); }));
        QVERIFY(observed.sees([&] { folder.makeFolders("watched/sub"); }));
        QVERIFY(observed.sees(
            [&] { std::rename(folder.path("watched/old").constData(), folder.path("moved").constData()); }));
        QVERIFY(observed.sees(
            [&] { std::rename(folder.path("moved").constData(), folder.path("watched/back").constData()); }));
        QVERIFY(observed.sees([&] { chmod(folder.path("watched/back").constData(), 0600); }));
        QVERIFY(observed.sees([&] { unlink(folder.path("watched/back").constData()); }));
        QVERIFY(observed.sees([&] { rmdir(folder.path("watched/sub").constData()); }));
    }

    void otherFoldersAreOfNoInterest() {
        const TemporaryFolder folder;
        folder.makeFolders("watched/sub");
        folder.makeFolders("other");
        Observed observed({folder.url("watched")});
        QVERIFY(observed.ignores([&] {
            folder.writeFile("other/file", "x");
            folder.writeFile("beside", "x");
            folder.writeFile("watched/sub/below", "x");
        }));
        observed.watcher.setFolders({folder.url("other")});
        QVERIFY(observed.ignores([&] { folder.writeFile("watched/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("other/file2", "x"); }));
    }

    void aFolderIsFoundAtEveryStepThatItIsMade() {
        const TemporaryFolder folder;
        Observed observed({folder.url("a/b/c")});
        QVERIFY(observed.ignores([&] { folder.writeFile("unrelated", "x"); }));
        folder.makeFolders("a");
        QVERIFY(observed.ignores([&] { folder.writeFile("a/unrelated", "x"); }));
        folder.makeFolders("a/b");
        QVERIFY(observed.sees([&] { folder.makeFolders("a/b/c"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/file", "x"); }));
    }

    void aFolderMadeWithAllItsStepsAtOnceIsFound() {
        const TemporaryFolder folder;
        Observed observed({folder.url("a/b/c/d/e")});
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/d/e/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/d/e/second", "x"); }));
    }

    void aFolderThatIsRemovedAndMadeAgainIsWatchedAgain() {
        const TemporaryFolder folder;
        folder.makeFolders("a/b");
        Observed observed({folder.url("a/b")});
        for (int round = 0; round < 3; ++round) {
            QVERIFY(observed.sees([&] { remove(folder.path("a")); }));
            folder.makeFolders("a/b");
            QVERIFY(observed.sees([&] { folder.writeFile("a/b/file", "x"); }));
        }
    }

    void aRemovedFolderThatIsStillInUseIsFoundAgain() {
        const TemporaryFolder folder;
        folder.makeFolders("a/b");
        Observed observed({folder.url("a/b")});
        const FileDescriptor user(open(folder.path("a/b").constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        QVERIFY(user.isValid());
        QVERIFY(observed.sees([&] {
            rmdir(folder.path("a/b").constData());
            folder.makeFolders("a/b");
        }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/file", "x"); }));
    }

    void aFolderThatMovesAwayIsLeft() {
        const TemporaryFolder folder;
        folder.makeFolders("a/b");
        Observed observed({folder.url("a/b")});
        QVERIFY(observed.sees([&] { std::rename(folder.path("a/b").constData(), folder.path("a/away").constData()); }));
        QVERIFY(observed.ignores([&] { folder.writeFile("a/away/file", "x"); }));
        folder.makeFolders("a/b");
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/file", "x"); }));
    }

    void aFolderBelowOneThatMovesAwayIsLeft() {
        const TemporaryFolder folder;
        folder.makeFolders("a/b/c");
        Observed observed({folder.url("a/b/c")});
        QVERIFY(observed.sees([&] { std::rename(folder.path("a").constData(), folder.path("away").constData()); }));
        QVERIFY(observed.ignores([&] { folder.writeFile("away/b/c/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/second", "x"); }));
    }

    void aFolderReplacedByAnotherIsWatchedInItsPlace() {
        const TemporaryFolder folder;
        folder.makeFolders("a");
        folder.makeFolders("next");
        Observed observed({folder.url("a")});
        QVERIFY(observed.sees([&] { std::rename(folder.path("next").constData(), folder.path("a").constData()); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/file", "x"); }));
    }

    void aFileInAFoldersPlaceMakesWay() {
        const TemporaryFolder folder;
        folder.writeFile("a", "x");
        Observed observed({folder.url("a/b")});
        unlink(folder.path("a").constData());
        folder.makeFolders("a/b");
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/file", "x"); }));
    }

    void theTargetOfALinkIsWatchedAndTheLinkItself() {
        const TemporaryFolder folder;
        folder.makeFolders("one");
        folder.makeFolders("two");
        folder.link("middle", "one");
        folder.link("link", folder.path("middle"));
        Observed observed({folder.url("link")});
        QVERIFY(observed.sees([&] { folder.writeFile("one/file", "x"); }));
        QVERIFY(observed.sees([&] {
            folder.link("new", "two");
            std::rename(folder.path("new").constData(), folder.path("middle").constData());
        }));
        QVERIFY(observed.sees([&] { folder.writeFile("two/file", "x"); }));
        QVERIFY(observed.ignores([&] { folder.writeFile("one/second", "x"); }));
        QVERIFY(observed.sees([&] { unlink(folder.path("link").constData()); }));
        QVERIFY(observed.sees([&] { folder.link("link", "one"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("one/third", "x"); }));
    }

    void linksOnTheWayAreFollowedUpAndDown() {
        const TemporaryFolder folder;
        folder.makeFolders("real/x/y");
        folder.makeFolders("deep/er");
        folder.link("deep/er/up", "../../real/x");
        Observed observed({folder.url("deep/er/up/y")});
        QVERIFY(observed.sees([&] { folder.writeFile("real/x/y/file", "x"); }));
        QVERIFY(observed.sees([&] { remove(folder.path("real")); }));
        QVERIFY(observed.sees([&] { folder.writeFile("real/x/y/file", "x"); }));
    }

    void aLinkThatLeadsToNothingOrToItselfMayBeMended() {
        const TemporaryFolder folder;
        folder.link("self", "self");
        folder.link("nowhere", "later");
        Observed observed({folder.url("self"), folder.url("nowhere")});
        folder.makeFolders("later");
        QVERIFY(observed.sees([&] { folder.writeFile("later/file", "x"); }));
        unlink(folder.path("self").constData());
        folder.makeFolders("self");
        QVERIFY(observed.sees([&] { folder.writeFile("self/file", "x"); }));
    }

    void namesThatAreNotUnicodeAreWatched() {
        const TemporaryFolder folder;
        Observed observed({folder.url("caf\xe9/sub")});
        QVERIFY(observed.sees([&] { folder.writeFile("caf\xe9/sub/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("caf\xe9/sub/second", "x"); }));
    }

    void aFolderThatBecomesReadableIsWatched() {
        const TemporaryFolder folder;
        chmod(folder.path().constData(), 0755);
        folder.makeFolders("closed");
        chmod(folder.path("closed").constData(), 0);
        std::unique_ptr<Observed> observed;
        {
            const OrdinaryUser user;
            observed = std::make_unique<Observed>(QList<FileUrl>{folder.url("closed")});
        }
        QVERIFY(observed->sees([&] { chmod(folder.path("closed").constData(), 0755); }));
        QVERIFY(observed->sees([&] { folder.writeFile("closed/file", "x"); }));
    }

    void aBurstIsToldOnce() {
        const TemporaryFolder folder;
        folder.makeFolders("watched");
        Observed observed({folder.url("watched")});
        QVERIFY(observed.sees([&] {
            for (int i = 0; i < 100; ++i)
                folder.writeFile("watched/" + QByteArray::number(i), "x");
        }));
        QCoreApplication::processEvents();
        QCOMPARE(observed.calls, 1);
    }

    void moreEventsThanTheKernelKeepsCountAsAChange() {
        const TemporaryFolder folder;
        folder.makeFolders("watched/sub");
        folder.writeFile("watched/a", "x");
        folder.writeFile("watched/b", "x");
        const int queueLength = TemporaryFolder::contentsOf("/proc/sys/fs/inotify/max_queued_events").trimmed().toInt();
        QVERIFY(queueLength > 0);
        Observed observed({folder.url("watched/sub"), folder.url("watched")});
        QVERIFY(observed.sees([&] {
            for (int i = 0; i < queueLength; ++i)
                chmod(folder.path(i % 2 ? "watched/a" : "watched/b").constData(), i & 2 ? 0600 : 0644);
            remove(folder.path("watched/sub"));
            folder.makeFolders("watched/sub");
        }));
        // All of the queue.
        int seen = 0;
        while (seen != observed.calls) {
            seen = observed.calls;
            QCoreApplication::processEvents();
        }
        QVERIFY(observed.sees([&] { folder.writeFile("watched/sub/file", "x"); }));
    }

    void theFirstFoldersAreWatchedWhenThereAreTooMany() {
        const TemporaryFolder folder;
        QList<FileUrl> folders;
        for (int i = 0; i < 100; ++i)
            folders.append(FileUrl::fromNativePath(folder.makeFolders("f" + QByteArray::number(i))));
        const auto depth = static_cast<int>(folder.path().count('/') + 1);
        const int before = watchCount();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Too many folders")));
        Observed observed(folders, 10 + depth);
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

    void nothingIsLeftBehindNorInherited() {
        const TemporaryFolder folder;
        folder.makeFolders("a");
        const int before = watchCount();
        {
            const Observed observed({folder.url("a"), folder.url("missing/b")});
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

    void theSameFoldersAgainCostNothingToSpeakOf() {
        const TemporaryFolder folder;
        QList<FileUrl> folders;
        for (int i = 0; i < 1000; ++i)
            folders.append(FileUrl::fromNativePath(folder.makeFolders("f" + QByteArray::number(i))));
        Observed observed(folders);
        const int watches = watchCount();
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 1000; ++i)
            observed.watcher.setFolders(folders);
        QVERIFY2(timer.elapsed() < 1000, "a millisecond each is far more than a comparison takes");
        QCOMPARE(watchCount(), watches);
        folders.append(folder.url("one more"));
        observed.watcher.setFolders(folders);
        QCOMPARE(watchCount(), watches);
        QVERIFY(observed.sees([&] { folder.writeFile("f500/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.makeFolders("one more"); }));
    }

    void theHandlerMayEndTheWatcher() {
        const TemporaryFolder folder;
        folder.makeFolders("a");
        auto watcher = std::make_unique<InotifyFolderWatcher>();
        bool called = false;
        watcher->setChangeHandler([&] {
            called = true;
            watcher.reset();
        });
        watcher->setFolders({folder.url("a")});
        folder.writeFile("a/file", "x");
        QTRY_VERIFY(called);
    }
};

QTEST_GUILESS_MAIN(InotifyFolderWatcherTest)
#include "InotifyFolderWatcherTest.moc"
