#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/ObservedWatcher.h"

#include <cstdio>
#include <fcntl.h>
#include <memory>

using namespace zelmo;

class InotifyFolderWayTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFolderIsFoundAtEveryStepThatItIsMade() {
        const TemporaryFolder folder;
        ObservedWatcher observed({folder.url("a/b/c")});
        QVERIFY(observed.ignores([&] { folder.writeFile("unrelated", "x"); }));
        folder.makeFolders("a");
        QVERIFY(observed.ignores([&] { folder.writeFile("a/unrelated", "x"); }));
        folder.makeFolders("a/b");
        QVERIFY(observed.sees([&] { folder.makeFolders("a/b/c"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/file", "x"); }));
    }

    void aFolderMadeWithAllItsStepsAtOnceIsFound() {
        const TemporaryFolder folder;
        ObservedWatcher observed({folder.url("a/b/c/d/e")});
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/d/e/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/d/e/second", "x"); }));
    }

    void aFolderThatIsRemovedAndMadeAgainIsWatchedAgain() {
        const TemporaryFolder folder;
        folder.makeFolders("a/b");
        ObservedWatcher observed({folder.url("a/b")});
        for (int round = 0; round < 3; ++round) {
            QVERIFY(observed.sees([&] { removeFolder(folder.path("a")); }));
            folder.makeFolders("a/b");
            QVERIFY(observed.sees([&] { folder.writeFile("a/b/file", "x"); }));
        }
    }

    void aRemovedFolderThatIsStillInUseIsFoundAgain() {
        const TemporaryFolder folder;
        folder.makeFolders("a/b");
        ObservedWatcher observed({folder.url("a/b")});
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
        ObservedWatcher observed({folder.url("a/b")});
        QVERIFY(observed.sees([&] { std::rename(folder.path("a/b").constData(), folder.path("a/away").constData()); }));
        QVERIFY(observed.ignores([&] { folder.writeFile("a/away/file", "x"); }));
        folder.makeFolders("a/b");
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/file", "x"); }));
    }

    void aFolderBelowOneThatMovesAwayIsLeft() {
        const TemporaryFolder folder;
        folder.makeFolders("a/b/c");
        ObservedWatcher observed({folder.url("a/b/c")});
        QVERIFY(observed.sees([&] { std::rename(folder.path("a").constData(), folder.path("away").constData()); }));
        QVERIFY(observed.ignores([&] { folder.writeFile("away/b/c/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/file", "x"); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/b/c/second", "x"); }));
    }

    void aFolderReplacedByAnotherIsWatchedInItsPlace() {
        const TemporaryFolder folder;
        folder.makeFolders("a");
        folder.makeFolders("next");
        ObservedWatcher observed({folder.url("a")});
        QVERIFY(observed.sees([&] { std::rename(folder.path("next").constData(), folder.path("a").constData()); }));
        QVERIFY(observed.sees([&] { folder.writeFile("a/file", "x"); }));
    }

    void aFileInAFoldersPlaceMakesWay() {
        const TemporaryFolder folder;
        folder.writeFile("a", "x");
        ObservedWatcher observed({folder.url("a/b")});
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
        ObservedWatcher observed({folder.url("link")});
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
        ObservedWatcher observed({folder.url("deep/er/up/y")});
        QVERIFY(observed.sees([&] { folder.writeFile("real/x/y/file", "x"); }));
        QVERIFY(observed.sees([&] { removeFolder(folder.path("real")); }));
        QVERIFY(observed.sees([&] { folder.writeFile("real/x/y/file", "x"); }));
    }

    void aLinkThatLeadsToNothingOrToItselfMayBeMended() {
        const TemporaryFolder folder;
        folder.link("self", "self");
        folder.link("nowhere", "later");
        ObservedWatcher observed({folder.url("self"), folder.url("nowhere")});
        folder.makeFolders("later");
        QVERIFY(observed.sees([&] { folder.writeFile("later/file", "x"); }));
        unlink(folder.path("self").constData());
        folder.makeFolders("self");
        QVERIFY(observed.sees([&] { folder.writeFile("self/file", "x"); }));
    }

    void aFolderThatBecomesReadableIsWatched() {
        const TemporaryFolder folder;
        chmod(folder.path().constData(), 0755);
        folder.makeFolders("closed");
        chmod(folder.path("closed").constData(), 0);
        std::unique_ptr<ObservedWatcher> observed;
        {
            const OrdinaryUser user;
            observed = std::make_unique<ObservedWatcher>(QList<FileUrl>{folder.url("closed")});
        }
        QVERIFY(observed->sees([&] { chmod(folder.path("closed").constData(), 0755); }));
        QVERIFY(observed->sees([&] { folder.writeFile("closed/file", "x"); }));
    }
};

QTEST_GUILESS_MAIN(InotifyFolderWayTest)
#include "InotifyFolderWayTest.moc"
