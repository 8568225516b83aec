#include "TrashFixture.h"

#include <QDateTime>
#include <QTest>

#include <fcntl.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr int manyFiles = 10'000;

void addPlaces() {
    QTest::addColumn<Place>("place");
    QTest::newRow("same file system") << Place::homeFileSystem;
    QTest::newRow("other file system") << Place::otherFileSystem;
}

} // namespace

// What a test of both places starts with.
#define FETCH_FIXTURE()                                                                                                \
    QFETCH(const Place, place);                                                                                        \
    const TrashFixture fixture(place);                                                                                 \
    if (!fixture.isPossible())                                                                                         \
        QSKIP("/dev/shm is no file system of its own here");

class XdgTrashTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aBundleMovesWhole_data() { addPlaces(); }
    void aBundleMovesWhole() {
        FETCH_FIXTURE();
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        const auto before = pictureOf(bundle);
        QVERIFY(before.size() > 8);
        const QDateTime start = QDateTime::currentDateTime().addSecs(-1);
        QCOMPARE(fixture.move(bundle), QByteArray("moved"));
        QVERIFY(!TemporaryFolder::exists(bundle));
        const auto items = fixture.items();
        QCOMPARE(items.size(), 1);
        QCOMPARE(items[0].name, QByteArray("Notes.app"));
        QCOMPARE(items[0].originalPath, bundle);
        const QDateTime date = QDateTime::fromString(QString::fromLatin1(items[0].deletionDate), Qt::ISODate);
        QCOMPARE(items[0].deletionDate.size(), 19);
        QCOMPARE(items[0].deletionDate[10], 'T');
        QVERIFY2(date >= start && date <= QDateTime::currentDateTime(), items[0].deletionDate.constData());
        QCOMPARE(pictureOf(fixture.trashed("Notes.app")), before);
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
        struct stat hole {};
        QCOMPARE(stat(fixture.trashed("Notes.app/Contents/Hole").constData(), &hole), 0);
        QVERIFY(hole.st_blocks < 1000);
    }

    void aNameThatIsTakenIsNotReplaced_data() { addPlaces(); }
    void aNameThatIsTakenIsNotReplaced() {
        FETCH_FIXTURE();
        QList<QByteArray> contents;
        for (const char* content : {"first", "second", "third"}) {
            const QByteArray file = fixture.applications().writeFile("Notes.app", content);
            QCOMPARE(fixture.move(file), QByteArray("moved"));
        }
        const auto items = fixture.items();
        QCOMPARE(items.size(), 3);
        for (const TrashedItem& item : items) {
            QCOMPARE(item.originalPath, fixture.applications().path("Notes.app"));
            contents.append(TemporaryFolder::contentsOf(fixture.trashed(item.name)));
        }
        std::sort(contents.begin(), contents.end());
        QCOMPARE(contents, (QList<QByteArray>{"first", "second", "third"}));
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    // GIO is less careful on the home folder's file system.
    void whatHasNoInformationIsNotReplacedEither_data() {
        QTest::addColumn<QStringList>("options");
        QTest::newRow("where a renaming may be told so") << QStringList();
        QTest::newRow("where it can't") << QStringList{QStringLiteral("--without-exclusive-renames")};
    }
    void whatHasNoInformationIsNotReplacedEither() {
        QFETCH(QStringList, options);
        const TrashFixture fixture(Place::otherFileSystem);
        if (!fixture.isPossible())
            QSKIP("/dev/shm is no file system of its own here");
        const QByteArray file = fixture.applications().writeFile("Notes.app", "new");
        fixture.homeFolder().writeFile("data/Trash/files/Notes.app", "old");
        fixture.handOver();
        const QStringList mover{QStringLiteral(ZELMO_TRASH_MOVER), QStringLiteral("--ordinary-user")};
        QCOMPARE(fixture.run(mover + options, file + '\n'), std::optional(QByteArray("moved\n")));
        QCOMPARE(TemporaryFolder::contentsOf(fixture.trashed("Notes.app")), QByteArray("old"));
        QCOMPARE(TemporaryFolder::contentsOf(fixture.trashed("Notes.2.app")), QByteArray("new"));
    }

    void aLinkGoesAndItsTargetStays_data() {
        QTest::addColumn<Place>("place");
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<QByteArray>("suffix");
        for (const Place place : {Place::homeFileSystem, Place::otherFileSystem}) {
            const char* name = place == Place::homeFileSystem ? "same" : "other";
            QTest::addRow("to a folder, %s", name) << place << QByteArray("Target.app") << QByteArray();
            QTest::addRow("with a slash after it, %s", name) << place << QByteArray("Target.app") << QByteArray("/");
            QTest::addRow("to nothing, %s", name) << place << QByteArray("No such.app") << QByteArray();
        }
    }
    void aLinkGoesAndItsTargetStays() {
        FETCH_FIXTURE();
        QFETCH(const QByteArray, target);
        QFETCH(const QByteArray, suffix);
        const QByteArray bundle = fixture.makeBundle("Target.app");
        const auto before = pictureOf(bundle);
        const QByteArray link = fixture.applications().link("Link.app", target);
        QCOMPARE(fixture.move(link + suffix), QByteArray("moved"));
        QVERIFY(!TemporaryFolder::exists(link));
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(fixture.items(), (QList<TrashedItem>{{"Link.app", link, fixture.items().value(0).deletionDate}}));
        QVERIFY(pictureOf(fixture.trashed("Link.app")).value(0).contains(QByteArray("|" + target + "|")));
    }

    void oddNamesKeepTheirBytes_data() {
        QTest::addColumn<Place>("place");
        QTest::addColumn<QByteArray>("name");
        for (const Place place : {Place::homeFileSystem, Place::otherFileSystem}) {
            const char* where = place == Place::homeFileSystem ? "same" : "other";
            QTest::addRow("not UTF-8, %s", where) << place << QByteArray("caf\xe9 \xff.app");
            QTest::addRow("newline, %s", where) << place << QByteArray("two\nlines.app");
            QTest::addRow("percent signs, %s", where) << place << QByteArray("100 %41 %.app");
            QTest::addRow("a dash, %s", where) << place << QByteArray("-rf.app");
            QTest::addRow("quotes, %s", where) << place << QByteArray("$(id) 'a' \"b\" ;.app");
            QTest::addRow("no ending, %s", where) << place << QByteArray("tool");
            QTest::addRow("hidden, %s", where) << place << QByteArray(".hidden");
            QTest::addRow("Unicode, %s", where) << place
                                                << QByteArray("Schr\xc3\xb6"
                                                              "dinger \xe7\x8c\xab.app");
        }
    }
    void oddNamesKeepTheirBytes() {
        FETCH_FIXTURE();
        QFETCH(const QByteArray, name);
        const QByteArray bundle = fixture.makeBundle(name);
        const auto before = pictureOf(bundle);
        QCOMPARE(fixture.move(bundle), QByteArray("moved"));
        QVERIFY(!TemporaryFolder::exists(bundle));
        const auto items = fixture.items();
        QCOMPARE(items.size(), 1);
        QCOMPARE(items[0].originalPath, bundle);
        QCOMPARE(pictureOf(fixture.trashed(items[0].name)), before);
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void aNameWithoutRoomForMoreIsMoved_data() { addPlaces(); }
    void aNameWithoutRoomForMoreIsMoved() {
        FETCH_FIXTURE();
        for (int i = 0; i < 2; ++i) {
            const QByteArray bundle = fixture.makeBundle(QByteArray(251, 'n') + ".app");
            QCOMPARE(fixture.move(bundle), QByteArray("moved"));
            QVERIFY(!TemporaryFolder::exists(bundle));
            QCOMPARE(fixture.items().size(), i + 1);
            QCOMPARE(fixture.items()[i].originalPath, bundle);
        }
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void manyFilesMoveWhole_data() { addPlaces(); }
    void manyFilesMoveWhole() {
        FETCH_FIXTURE();
        for (int i = 0; i < manyFiles; ++i)
            fixture.applications().writeFile("Big.app/" + QByteArray::number(i % 100) + "/" + QByteArray::number(i),
                                             QByteArray::number(i));
        const QByteArray bundle = fixture.applications().path("Big.app");
        const auto before = pictureOf(bundle);
        QCOMPARE(before.size(), manyFiles + 100 + 1);
        QCOMPARE(fixture.move(bundle), QByteArray("moved"));
        QVERIFY(!TemporaryFolder::exists(bundle));
        QCOMPARE(fixture.items().size(), 1);
        QVERIFY(pictureOf(fixture.trashed("Big.app")) == before);
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void aParentThatMayNotBeChangedRefuses_data() { addPlaces(); }
    void aParentThatMayNotBeChangedRefuses() {
        FETCH_FIXTURE();
        const QByteArray bundle = fixture.makeBundle("locked/Notes.app");
        const auto before = pictureOf(bundle);
        setMode(fixture.applications().path("locked"), 0555);
        QCOMPARE(fixture.move(bundle), QByteArray("refused"));
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
        setMode(fixture.applications().path("locked"), 0755);
    }

    void aLockedFolderInsideIsNoHalfMove_data() { addPlaces(); }
    void aLockedFolderInsideIsNoHalfMove() {
        FETCH_FIXTURE();
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        setMode(bundle + "/Contents/Linux", 0555);
        const auto before = pictureOf(bundle);
        // Renaming takes no rights to what is inside; removing does.
        const bool moves = place == Place::homeFileSystem;
        QCOMPARE(fixture.move(bundle), moves ? QByteArray("moved") : QByteArray("refused"));
        QCOMPARE(TemporaryFolder::exists(bundle), !moves);
        QCOMPARE(pictureOf(moves ? fixture.trashed("Notes.app") : bundle), before);
        QCOMPARE(fixture.items().size(), moves ? 1 : 0);
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
        if (!moves)
            setMode(bundle + "/Contents/Linux", 0755);
    }

    void someoneElsesItemInASharedFolderStays_data() { addPlaces(); }
    void someoneElsesItemInASharedFolderStays() {
        if (geteuid() != 0)
            QSKIP("only root can make someone else's file");
        FETCH_FIXTURE();
        fixture.handOver();
        setMode(fixture.applications().path(), 01777);
        QVERIFY(chown(fixture.applications().path().constData(), 0, 0) == 0);
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        setMode(bundle + "/Contents/Info.plist", 0444);
        const auto before = pictureOf(bundle);
        QCOMPARE(fixture.moveAsItIs({bundle}), QList<QByteArray>{"refused"});
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void withoutATrashNothingIsMoved_data() { addPlaces(); }
    void withoutATrashNothingIsMoved() {
        FETCH_FIXTURE();
        const QByteArray bundle = fixture.makeBundle("Notes.app");
        const auto before = pictureOf(bundle);
        setMode(fixture.home() + "/data", 0555);
        QCOMPARE(fixture.move(bundle), QByteArray("refused"));
        QCOMPARE(pictureOf(bundle), before);
        QVERIFY(!TemporaryFolder::exists(fixture.trashFolder()));
        setMode(fixture.home() + "/data", 0755);
    }

    void whatIsNotThereIsRefused_data() { addPlaces(); }
    void whatIsNotThereIsRefused() {
        FETCH_FIXTURE();
        QCOMPARE(fixture.move(fixture.applications().path("Gone.app")), QByteArray("refused"));
        QCOMPARE(fixture.move(fixture.applications().path("no such folder/Gone.app")), QByteArray("refused"));
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    void whatIsNoAbsolutePathIsRefused() {
        const TrashFixture fixture;
        const QByteArray file = fixture.applications().writeFile("Notes.app", "kept");
        fixture.handOver();
        const QByteArray cutShort = file + QByteArray(1, '\0') + "more";
        QCOMPARE(fixture.moveAsItIs({"", "Notes.app", "./Notes.app", "/", cutShort}), QList<QByteArray>(5, "refused"));
        QVERIFY(TemporaryFolder::exists(file));
    }
};

QTEST_GUILESS_MAIN(XdgTrashTest)
#include "XdgTrashTest.moc"
