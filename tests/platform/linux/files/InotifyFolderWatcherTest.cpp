#include "platform/linux/files/ObservedWatcher.h"

#include <cstdio>
#include <memory>

using namespace zelmo;

class InotifyFolderWatcherTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyKindOfChangeInAFolderIsTold() {
        const TemporaryFolder folder;
        folder.makeFolders("watched");
        folder.writeFile("watched/old", "x");
        ObservedWatcher observed({folder.url("watched")});
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
        ObservedWatcher observed({folder.url("watched")});
        QVERIFY(observed.ignores([&] {
            folder.writeFile("other/file", "x");
            folder.writeFile("beside", "x");
            folder.writeFile("watched/sub/below", "x");
        }));
        observed.watcher.setFolders({folder.url("other")});
        QVERIFY(observed.ignores([&] { folder.writeFile("watched/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("other/file2", "x"); }));
    }

    void namesThatAreNotUnicodeAreWatched() {
        const TemporaryFolder folder;
        ObservedWatcher observed({folder.url("caf\xe9/sub")});
        QVERIFY(observed.sees([&] { folder.writeFile("caf\xe9/sub/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("caf\xe9/sub/second", "x"); }));
    }

    void aBurstIsToldOnce() {
        const TemporaryFolder folder;
        folder.makeFolders("watched");
        ObservedWatcher observed({folder.url("watched")});
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
        ObservedWatcher observed({folder.url("watched/sub"), folder.url("watched")});
        QVERIFY(observed.sees([&] {
            for (int i = 0; i < queueLength; ++i)
                chmod(folder.path(i % 2 ? "watched/a" : "watched/b").constData(), i & 2 ? 0600 : 0644);
            removeFolder(folder.path("watched/sub"));
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
