#include "TrashFixture.h"

#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

void addPlaces() {
    QTest::addColumn<Place>("place");
    QTest::newRow("same file system") << Place::homeFileSystem;
    QTest::newRow("other file system") << Place::otherFileSystem;
}

} // namespace

// What others who know the rules of the Trash make of what was moved there.
class XdgTrashToolsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void trashToolsListAndRestoreIt_data() { addPlaces(); }
    void trashToolsListAndRestoreIt() {
        QFETCH(const Place, place);
        const TrashFixture fixture(place);
        if (!fixture.isPossible())
            QSKIP("/dev/shm is no file system of its own here");
        const QByteArray bundle = fixture.makeBundle("Not es 100%41.app");
        // trash-restore doesn't keep it across file systems.
        unlink(QByteArray(bundle + "/Contents/Second").constData());
        const auto before = pictureOf(bundle);
        QCOMPARE(fixture.move(bundle), QByteArray("moved"));

        const auto list = fixture.run({QStringLiteral("trash-list")});
        QVERIFY2(list, "trash-list, of the package trash-cli, fails");
        QCOMPARE(list->count('\n'), 1);
        QVERIFY2(list->endsWith(QByteArray(" " + bundle + "\n")), list->constData());

        const auto restored =
            fixture.run({QStringLiteral("trash-restore"), QString::fromUtf8(fixture.applications().path())}, "0\n");
        QVERIFY(restored);
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }

    // The service that file managers show the Trash with.
    void theDesktopsTrashListsAndRestoresIt_data() { addPlaces(); }
    void theDesktopsTrashListsAndRestoresIt() {
        QFETCH(const Place, place);
        const TrashFixture fixture(place);
        if (!fixture.isPossible())
            QSKIP("/dev/shm is no file system of its own here");
        const QByteArray bundle = fixture.makeBundle("Not es 100%41.app");
        const auto before = pictureOf(bundle);
        QCOMPARE(fixture.move(bundle), QByteArray("moved"));

        const auto list = fixture.run({QStringLiteral("dbus-run-session"), QStringLiteral("--"), QStringLiteral("gio"),
                                       QStringLiteral("trash"), QStringLiteral("--list")});
        QVERIFY2(list, "gio trash --list, of the packages libglib2.0-bin and gvfs, fails");
        QCOMPARE(list->count('\n'), 1);
        QVERIFY2(list->endsWith(QByteArray("\t" + bundle + "\n")), list->constData());

        // Across file systems gio restores single files only; file managers copy folders by themselves.
        if (place == Place::otherFileSystem)
            return;
        const QByteArray address = list->left(list->indexOf('\t'));
        QVERIFY(fixture.run({QStringLiteral("dbus-run-session"), QStringLiteral("--"), QStringLiteral("gio"),
                             QStringLiteral("trash"), QStringLiteral("--restore"), QString::fromUtf8(address)}));
        QCOMPARE(pictureOf(bundle), before);
        QCOMPARE(fixture.items(), QList<TrashedItem>());
        QCOMPARE(fixture.leftovers(), QList<QByteArray>());
    }
};

QTEST_GUILESS_MAIN(XdgTrashToolsTest)
#include "XdgTrashToolsTest.moc"
