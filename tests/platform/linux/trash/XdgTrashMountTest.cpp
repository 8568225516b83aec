#include "TrashFixture.h"

#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

// Runs a script where it may mount what nobody else sees. $APPS is the folder of applications, $MOVER the mover, which
// reads paths from its input, as an ordinary user. Nothing when that can't be done here.
std::optional<QByteArray> runWithMounts(TrashFixture& fixture, const QByteArray& script) {
    QProcessEnvironment& environment = fixture.environment();
    environment.insert(QStringLiteral("APPS"), QString::fromUtf8(fixture.applications().path()));
    environment.insert(QStringLiteral("MOVER"), QStringLiteral(ZELMO_TRASH_MOVER " --ordinary-user"));
    fixture.handOver();
    return fixture.run({QStringLiteral("unshare"), QStringLiteral("--mount"), QStringLiteral("--propagation"),
                        QStringLiteral("private"), QStringLiteral("sh"), QStringLiteral("-e"), QStringLiteral("-c"),
                        QString::fromUtf8(script)});
}

} // namespace

// What lies on mounts of its own, which only root can make.
class XdgTrashMountTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        const TrashFixture fixture;
        if (geteuid() != 0 ||
            !fixture.run({QStringLiteral("unshare"), QStringLiteral("--mount"), QStringLiteral("true")}))
            QSKIP("mounts can't be made here");
    }

    void anItemOnAMountInMemoryIsMoved() {
        TrashFixture fixture;
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        const auto before = pictureOf(bundle);
        fixture.applications().makeFolders("mount");
        const auto output = runWithMounts(fixture, "mount -t tmpfs none \"$APPS/mount\"\n"
                                                   "chown 65534:65534 \"$APPS/mount\"\n"
                                                   "cp -a \"$APPS/Notes.app\" \"$APPS/mount\"\n"
                                                   "printf '%s/mount/Notes.app\\n' \"$APPS\" | $MOVER\n"
                                                   "ls -A \"$APPS/mount\"");
        QCOMPARE(output.value_or("no output"), QByteArray("moved\n"));
        QCOMPARE(fixture.items().size(), 1);
        QCOMPARE(fixture.items()[0].originalPath, fixture.applications().path("mount/Notes.app"));
        QCOMPARE(pictureOf(fixture.trashed("Notes.app")), before);
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    // One file system, and yet no renaming leads from one mount to the other.
    void anItemOnASecondMountOfTheHomeFileSystemIsMoved() {
        TrashFixture fixture;
        fixture.makeBundle("store/Notes.app");
        const auto before = pictureOf(fixture.applications().path("store/Notes.app"));
        fixture.applications().makeFolders("mount");
        const auto output = runWithMounts(fixture, "mount --bind \"$APPS/store\" \"$APPS/mount\"\n"
                                                   "printf '%s/mount/Notes.app\\n' \"$APPS\" | $MOVER\n"
                                                   "ls -A \"$APPS/mount\"");
        QCOMPARE(output.value_or("no output"), QByteArray("moved\n"));
        QCOMPARE(fixture.items().size(), 1);
        QCOMPARE(fixture.items()[0].originalPath, fixture.applications().path("mount/Notes.app"));
        QCOMPARE(pictureOf(fixture.trashed("Notes.app")), before);
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void aMountInsideTheItemIsNotEmptied() {
        TrashFixture fixture(Place::otherFileSystem);
        if (!fixture.isPossible())
            QSKIP("/dev/shm is no file system of its own here");
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        fixture.applications().writeFile("documents/letter", "letter");
        const auto before = pictureOf(bundle);
        struct stat letter {};
        QCOMPARE(stat(fixture.applications().path("documents/letter").constData(), &letter), 0);
        const ino_t letterBefore = letter.st_ino;
        const auto output =
            runWithMounts(fixture, "mount --bind \"$APPS/documents\" \"$APPS/Notes.app/Contents/Empty\"\n"
                                   "printf '%s/Notes.app\\n' \"$APPS\" | $MOVER\n"
                                   "printf '%s/Notes.app/Contents/Empty\\n' \"$APPS\" | $MOVER\n");
        QCOMPARE(output.value_or("no output"), QByteArray("refused\nrefused\n"));
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(stat(fixture.applications().path("documents/letter").constData(), &letter), 0);
        QVERIFY2(letter.st_ino == letterBefore, "it was removed and put back");
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void anItemOnAReadOnlyMountStays() {
        TrashFixture fixture;
        fixture.makeBundle("store/Notes.app");
        const auto before = pictureOf(fixture.applications().path("store"));
        fixture.applications().makeFolders("mount");
        const auto output = runWithMounts(fixture, "mount --bind -o ro \"$APPS/store\" \"$APPS/mount\"\n"
                                                   "printf '%s/mount/Notes.app\\n' \"$APPS\" | $MOVER\n");
        QCOMPARE(output.value_or("no output"), QByteArray("refused\n"));
        QCOMPARE(pictureOf(fixture.applications().path("store")), before);
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }
};

QTEST_GUILESS_MAIN(XdgTrashMountTest)
#include "XdgTrashMountTest.moc"
