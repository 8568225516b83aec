#include "TrashFixture.h"

#include <QSet>
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

    // With less room each time, of which something else is the last thing that there is none for.
    void aTrashWithoutRoomTakesAllOrNothing_data() {
        QTest::addColumn<QByteArray>("limits");
        QTest::newRow("for contents") << QByteArray("seq -f size=%gk 160 -4 80");
        QTest::newRow("for names") << QByteArray("seq -f nr_inodes=%g 24 -1 2");
    }
    void aTrashWithoutRoomTakesAllOrNothing() {
        QFETCH(const QByteArray, limits);
        TrashFixture fixture(Place::otherFileSystem);
        if (!fixture.isPossible())
            QSKIP("/dev/shm is no file system of its own here");
        fixture.makeBundle("store/Notes.app");
        const auto output = runWithMounts(
            fixture,
            "for limit in $(" + limits +
                "); do\n"
                "    mount -t tmpfs -o $limit none \"$HOME/data\"\n"
                "    chown 65534:65534 \"$HOME/data\"\n"
                "    [ -e Notes.app ] || cp -a store/Notes.app .\n"
                "    printf '%s/Notes.app\\n' \"$APPS\" | $MOVER | tr '\\n' ' '\n"
                "    for place in . \"$HOME/data/Trash/files\"; do\n"
                "        if [ ! -e $place/Notes.app ]; then printf 'gone '\n"
                "        elif diff -r --no-dereference store/Notes.app $place/Notes.app; then printf 'whole '\n"
                "        else printf 'damaged '; fi\n"
                "    done\n"
                "    cd \"$HOME/data\"\n"
                "    find Trash -mindepth 1 -maxdepth 2 ! -name files ! -name info | sort | tr '\\n' ' '\n"
                "    sed -n 's/^Path=.*Notes.app/listed/p' Trash/info/* 2>/dev/null | tr '\\n' ' '\n"
                "    echo\n"
                "    cd \"$APPS\"\n"
                "    umount \"$HOME/data\"\n"
                "done");
        QVERIFY(output);
        QSet<QByteArray> outcomes;
        for (const QByteArray& line : output->trimmed().split('\n'))
            outcomes.insert(line.simplified());
        const QSet<QByteArray> expected{
            "moved gone whole Trash/files/Notes.app Trash/info/Notes.app.trashinfo listed",
            "refused whole gone",
        };
        QCOMPARE(outcomes, expected);
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
