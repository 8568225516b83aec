#include "TrashFixture.h"

#include <QRandomGenerator>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr int kills = 25;
constexpr int filesToKillIn = 400;

// A machine on which the copying goes wrong: `script` stands in the place of the copying tool, knows the path of the
// bundle as $BUNDLE and reaches the real tool as $COPY.
void replaceCopyingTool(TrashFixture& fixture, const QByteArray& bundle, const QByteArray& script) {
    const QByteArray tool = fixture.homeFolder().writeFile("bin/cp", "#!/bin/sh\n" + script);
    setMode(tool, 0755);
    QProcessEnvironment& environment = fixture.environment();
    const QString path = environment.value(QStringLiteral("PATH"));
    environment.insert(QStringLiteral("COPY"), QStringLiteral("/bin/cp"));
    environment.insert(QStringLiteral("BUNDLE"), QString::fromUtf8(bundle));
    environment.insert(QStringLiteral("PATH"), QString::fromUtf8(fixture.home()) + QStringLiteral("/bin:") + path);
}

void restoreCopyingTool(const TrashFixture& fixture) {
    unlink(fixture.homeFolder().path("bin/cp").constData());
}

// Starts the mover on one path and gives its process.
pid_t startMover(const TrashFixture& fixture, const QByteArray& path) {
    int ends[2];
    if (pipe(ends) != 0)
        return -1;
    QList<QByteArray> variables;
    for (const QString& variable : fixture.environment().toStringList())
        variables.append(variable.toUtf8());
    std::vector<char*> environment;
    for (QByteArray& variable : variables)
        environment.push_back(variable.data());
    environment.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[0], STDIN_FILENO);
        close(ends[0]);
        close(ends[1]);
        const int nothing = open("/dev/null", O_WRONLY);
        dup2(nothing, STDOUT_FILENO);
        execle(ZELMO_TRASH_MOVER, "trash-mover", "--ordinary-user", nullptr, environment.data());
        _exit(127);
    }
    close(ends[0]);
    const QByteArray line = path + '\n';
    const bool told = write(ends[1], line.constData(), static_cast<std::size_t>(line.size())) == line.size();
    close(ends[1]);
    return told ? child : -1;
}

} // namespace

#define REQUIRE_OTHER_FILE_SYSTEM()                                                                                    \
    if (!fixture.isPossible())                                                                                         \
        QSKIP("/dev/shm is no file system of its own here");

class XdgTrashFailureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aCopyThatFailsLeavesNothingBehind() {
        TrashFixture fixture(Place::otherFileSystem);
        REQUIRE_OTHER_FILE_SYSTEM();
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        const auto before = pictureOf(bundle);
        // Half of it is there by then.
        replaceCopyingTool(fixture, bundle, "for last; do :; done; mkdir \"$last\"; echo half >\"$last/half\"; exit 1");
        QCOMPARE(fixture.move(bundle), QByteArray("refused"));
        QVERIFY(TemporaryFolder::exists(fixture.trashFolder() + "/files"));
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void aMissingToolLeavesNothingBehind() {
        TrashFixture fixture(Place::otherFileSystem);
        REQUIRE_OTHER_FILE_SYSTEM();
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        const auto before = pictureOf(bundle);
        fixture.environment().insert(QStringLiteral("PATH"), QStringLiteral("/nowhere"));
        QCOMPARE(fixture.move(bundle), QByteArray("refused"));
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void whatChangesDuringTheCopyIsKept_data() {
        QTest::addColumn<QByteArray>("change");
        QTest::newRow("a new file") << QByteArray("echo new >\"$BUNDLE/Contents/new\"");
        QTest::newRow("a longer file") << QByteArray("echo new >>\"$BUNDLE/Contents/Second\"");
        QTest::newRow("a file as long") << QByteArray("printf n | dd of=\"$BUNDLE/Contents/Second\" conv=notrunc "
                                                      "status=none");
        QTest::newRow("a file for a folder")
            << QByteArray("rmdir \"$BUNDLE/Contents/Empty\"; echo new >\"$BUNDLE/Contents/Empty\"");
    }
    void whatChangesDuringTheCopyIsKept() {
        QFETCH(const QByteArray, change);
        TrashFixture fixture(Place::otherFileSystem);
        REQUIRE_OTHER_FILE_SYSTEM();
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        const auto before = pictureOf(bundle);
        replaceCopyingTool(fixture, bundle, "$COPY \"$@\" || exit 1\n" + change);
        QCOMPARE(fixture.move(bundle), QByteArray("refused"));
        const auto after = pictureOf(bundle);
        QVERIFY(after != before);
        QVERIFY(after.size() >= before.size());
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void aRemovalThatFailsHalfWayIsUndone() {
        TrashFixture fixture(Place::otherFileSystem);
        REQUIRE_OTHER_FILE_SYSTEM();
        // The file inside goes, its folder can't.
        fixture.applications().writeFile("Notes.app/inner/file", "contents");
        const QByteArray bundle = fixture.applications().path("Notes.app");
        const auto before = pictureOf(bundle);
        replaceCopyingTool(fixture, bundle,
                           "case $* in\n"
                           "*--update*) ls \"$BUNDLE/inner\" >\"$HOME/missing\"; exec $COPY \"$@\";;\n"
                           "esac\n"
                           "$COPY \"$@\" && chmod 555 \"$BUNDLE\"");
        QCOMPARE(fixture.move(bundle), QByteArray("refused"));
        QVERIFY(TemporaryFolder::exists(fixture.homeFolder().path("missing")));
        QCOMPARE(TemporaryFolder::contentsOf(fixture.homeFolder().path("missing")), QByteArray());
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void aRemovalThatCanNotBeUndoneKeepsTheCopy() {
        TrashFixture fixture(Place::otherFileSystem);
        REQUIRE_OTHER_FILE_SYSTEM();
        fixture.applications().writeFile("Notes.app/inner/file", "contents");
        const QByteArray bundle = fixture.applications().path("Notes.app");
        const auto before = pictureOf(bundle);
        replaceCopyingTool(fixture, bundle,
                           "case $* in *--update*) exit 1;; esac\n"
                           "$COPY \"$@\" && chmod 555 \"$BUNDLE\"");
        QCOMPARE(fixture.move(bundle), QByteArray("refused"));
        QVERIFY(!TemporaryFolder::exists(bundle + "/inner/file"));
        QCOMPARE(fixture.items().size(), 1);
        QCOMPARE(fixture.items()[0].originalPath, bundle);
        QCOMPARE(pictureOf(fixture.trashed("Notes.app")), before);
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
        setMode(bundle, 0755);
    }

    void aCopyWhoseProcessDiedIsNeverListed() {
        TrashFixture fixture(Place::otherFileSystem);
        REQUIRE_OTHER_FILE_SYSTEM();
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        const auto before = pictureOf(bundle);
        replaceCopyingTool(fixture, bundle, "$COPY \"$@\" && kill -9 $PPID");
        QCOMPARE(fixture.move(bundle), QByteArray());
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers().size(), 1);
        QVERIFY(fixture.leftovers()[0].startsWith(".incoming-"));
        // The next one clears away what it left, whatever becomes of its own item.
        QCOMPARE(fixture.move(fixture.applications().path("Gone.app")), QByteArray("refused"));
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
        restoreCopyingTool(fixture);
        QCOMPARE(fixture.move(bundle), QByteArray("moved"));
        QCOMPARE(pictureOf(fixture.trashed("Notes.app")), before);
    }

    // As a process leaves it that died between announcing its item and putting it there.
    void anAnnouncementWithoutItsItemIsTakenBack() {
        const TrashFixture fixture;
        const QByteArray information = "[Trash Info]\nPath=/a\nDeletionDate=2020-01-01T00:00:00\n";
        const TemporaryFolder& home = fixture.homeFolder();
        for (const char* name : {"Mine", "There"}) {
            home.writeFile("data/Trash/.incoming-abc/" + QByteArray(name) + ".trashinfo", information);
            home.writeFile("data/Trash/info/" + QByteArray(name) + ".trashinfo", information);
        }
        home.writeFile("data/Trash/files/There", "there");
        home.writeFile("data/Trash/.incoming-abc/Theirs.trashinfo", information);
        home.writeFile("data/Trash/info/Theirs.trashinfo", "[Trash Info]\nPath=/b\n");
        QCOMPARE(fixture.move(fixture.applications().path("Gone.app")), QByteArray("refused"));
        QVERIFY(!TemporaryFolder::exists(home.path("data/Trash/info/Mine.trashinfo")));
        QVERIFY(TemporaryFolder::exists(home.path("data/Trash/info/There.trashinfo")));
        QVERIFY(TemporaryFolder::exists(home.path("data/Trash/info/Theirs.trashinfo")));
        QVERIFY(!TemporaryFolder::exists(home.path("data/Trash/.incoming-abc")));
    }

    void whatALivingProcessPreparesIsLeftAlone() {
        const TrashFixture fixture;
        const QByteArray copy = fixture.homeFolder().writeFile("data/Trash/.incoming-abc/item", "half");
        const int lock = open(fixture.homeFolder().path("data/Trash/.incoming-abc").constData(), O_RDONLY);
        QCOMPARE(flock(lock, LOCK_EX | LOCK_NB), 0);
        QCOMPARE(fixture.move(fixture.applications().writeFile("Notes.app", "notes")), QByteArray("moved"));
        QVERIFY(TemporaryFolder::exists(copy));
        close(lock);
        QCOMPARE(fixture.move(fixture.applications().path("Gone.app")), QByteArray("refused"));
        QVERIFY(!TemporaryFolder::exists(copy));
    }

    void aMoverMayBeKilledAtAnyMoment() {
        QRandomGenerator random(7);
        const TrashFixture fixture(Place::otherFileSystem);
        REQUIRE_OTHER_FILE_SYSTEM();
        const auto fill = [&fixture] {
            for (int i = 0; i < filesToKillIn; ++i)
                fixture.applications().writeFile("Notes.app/" + QByteArray::number(i % 7) + "/" + QByteArray::number(i),
                                                 QByteArray::number(i));
        };
        const QByteArray bundle = fixture.applications().path("Notes.app");
        // The moments gather where it matters most, around the one when the item is listed.
        qint64 nanoseconds = 20'000'000;
        int killedBefore = 0;
        int killedAfter = 0;
        for (int i = 0; i < kills; ++i) {
            const int itemsBefore = static_cast<int>(fixture.items().size());
            if (!TemporaryFolder::exists(bundle))
                fill();
            fixture.handOver();
            const auto whole = pictureOf(bundle);
            QCOMPARE(whole.size(), filesToKillIn + 7 + 1);
            const pid_t child = startMover(fixture, bundle);
            QVERIFY(child > 0);
            // The moment is what is tried out here; nothing is waited for.
            const timespec moment{.tv_sec = 0, .tv_nsec = nanoseconds};
            nanosleep(&moment, nullptr);
            kill(child, SIGKILL);
            int status = 0;
            QCOMPARE(waitpid(child, &status, 0), child);
            if (fixture.items().size() == itemsBefore) {
                ++killedBefore;
                nanoseconds = std::min(nanoseconds + nanoseconds * random.bounded(5, 50) / 100, qint64(999'999'999));
                QVERIFY(pictureOf(bundle) == whole);
                continue;
            }
            ++killedAfter;
            nanoseconds -= nanoseconds * random.bounded(5, 40) / 100;
            QCOMPARE(fixture.items().size(), itemsBefore + 1);
            // The one that is new: it alone is not marked yet.
            for (const TrashedItem& item : fixture.items()) {
                if (TemporaryFolder::exists(fixture.home() + "/seen-" + item.name))
                    continue;
                QVERIFY(pictureOf(fixture.trashed(item.name)) == whole);
                fixture.homeFolder().writeFile("seen-" + item.name, "");
            }
            std::error_code error;
            std::filesystem::remove_all(bundle.toStdString(), error);
        }
        QVERIFY2(killedBefore > 0 && killedAfter > 0, "no mover was met on both sides of the moment");
        QCOMPARE(fixture.move(fixture.applications().path("Gone.app")), QByteArray("refused"));
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }
};

QTEST_GUILESS_MAIN(XdgTrashFailureTest)
#include "XdgTrashFailureTest.moc"
