#include "PreferencesFileFixture.h"

#include <QCoreApplication>
#include <QTest>

#include <limits>

using namespace zelmo;

namespace {

QByteArray titleSize(const QByteArray& size) {
    return xmlPreferences("<key>titleFontSize</key><real>" + size + "</real>");
}

// Puts a file in place the way careful editors do.
void replace(const TemporaryFolder& folder, const QByteArray& name, const QByteArray& contents) {
    folder.writeFile(name + "~", contents);
    std::rename(folder.path(name + "~").constData(), folder.path(name).constData());
}

void removeFolder(const QByteArray& path) {
    QDir(QString::fromUtf8(path)).removeRecursively();
}

// Preferences over a file, and what they say has changed.
struct Running {
    explicit Running(const FileUrl& url) : file(url), preferences(file) {
        QObject::connect(&preferences, &Preferences::changed, &preferences, [this](Key key) { changes.append(key); });
    }

    bool comesToHave(double size) const {
        return QTest::qWaitFor([&] { return preferences.value<Key::titleFontSize>() == size; }, 3000);
    }

    PlistPreferencesFile file;
    Preferences preferences;
    QList<Key> changes;
};

// Returns when everything that happened in folders before has been told to every watcher.
void settle() {
    bool reached = false;
    InotifyFolderWatcher probe;
    const TemporaryFolder folder;
    probe.setChangeHandler([&] { reached = true; });
    probe.setFolders({FileUrl::fromNativePath(folder.path())});
    folder.writeFile("probe", "x");
    QVERIFY(QTest::qWaitFor([&] { return reached; }, 3000));
    QCoreApplication::processEvents();
}

} // namespace

class PlistPreferencesOutsideTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyWayToChangeTheFileIsSeen() {
        const TemporaryFolder folder;
        Running running(folder.url("config/p.plist"));
        folder.writeFile("config/p.plist", titleSize("21"));
        QVERIFY2(running.comesToHave(21), "folder and file made");
        folder.writeFile("config/p.plist", titleSize("22"));
        QVERIFY2(running.comesToHave(22), "written in place");
        replace(folder, "config/p.plist", titleSize("23"));
        QVERIFY2(running.comesToHave(23), "replaced");
        unlink(folder.path("config/p.plist").constData());
        QVERIFY2(running.comesToHave(32), "removed");
        folder.writeFile("config/p.plist", titleSize("24"));
        QVERIFY2(running.comesToHave(24), "made");
        removeFolder(folder.path("config"));
        QVERIFY2(running.comesToHave(32), "folder removed");
        folder.writeFile("config/p.plist", titleSize("25"));
        QVERIFY2(running.comesToHave(25), "folder made again");
        folder.writeFile("next/p.plist", titleSize("26"));
        std::rename(folder.path("config").constData(), folder.path("old").constData());
        std::rename(folder.path("next").constData(), folder.path("config").constData());
        QVERIFY2(running.comesToHave(26), "folder replaced");
    }

    void aFileBehindLinksIsSeenToChange() {
        const TemporaryFolder folder;
        folder.writeFile("real/one.plist", titleSize("21"));
        folder.writeFile("other/two.plist", titleSize("22"));
        folder.makeFolders("config");
        folder.makeFolders("between");
        folder.link("between/link", "../real/one.plist");
        folder.link("config/p.plist", "../between/link");
        Running running(folder.url("config/p.plist"));
        QCOMPARE(running.preferences.value<Key::titleFontSize>(), 21.0);
        folder.writeFile("real/one.plist", titleSize("23"));
        QVERIFY2(running.comesToHave(23), "target written");
        replace(folder, "real/one.plist", titleSize("24"));
        QVERIFY2(running.comesToHave(24), "target replaced");
        folder.link("between/new", "../other/two.plist");
        std::rename(folder.path("between/new").constData(), folder.path("between/link").constData());
        QVERIFY2(running.comesToHave(22), "link in between led elsewhere");
        folder.writeFile("other/two.plist", titleSize("25"));
        QVERIFY2(running.comesToHave(25), "new target written");
        replace(folder, "config/p.plist", titleSize("26"));
        QVERIFY2(running.comesToHave(26), "link replaced by a file");
    }

    void ownWritesAreNotReported() {
        const TemporaryFolder folder;
        PlistPreferencesFile file(folder.url("config/p.plist"));
        int reports = 0;
        file.setOutsideChangeHandler([&] { ++reports; });
        file.read();
        for (int i = 0; i < 5; ++i) {
            QVERIFY(file.write({{nameOf(Key::titleFontSize), 20.0 + i},
                                {nameOf(Key::searchFontSize), std::numeric_limits<double>::quiet_NaN()}}));
            settle();
        }
        QCOMPARE(reports, 0);
        folder.writeFile("config/p.plist", titleSize("40"));
        settle();
        QCOMPARE(reports, 1);
    }

    void otherFilesBesideAreOfNoInterest() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", titleSize("21"));
        PlistPreferencesFile file(folder.url("p.plist"));
        int reports = 0;
        file.setOutsideChangeHandler([&] { ++reports; });
        file.read();
        folder.writeFile("q.plist", titleSize("22"));
        chmod(folder.path("p.plist").constData(), 0600);
        folder.writeFile("p.plist", titleSize("21"));
        settle();
        QCOMPARE(reports, 0);
    }

    void anOutsideChangeThatAWriteComesUponIsReported() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", titleSize("21"));
        Running running(folder.url("p.plist"));
        folder.writeFile("p.plist", titleSize("22"));
        running.preferences.setValue<Key::searchFontSize>(20.0);
        QVERIFY(running.preferences.flush());
        QVERIFY(running.comesToHave(22));
        QCOMPARE(running.changes, (QList<Key>{Key::searchFontSize, Key::titleFontSize}));
        QCOMPARE(storedIn(folder.url("p.plist")).size(), 2);
    }

    void aFileThatBecomesUnreadableChangesNothing() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", titleSize("21"));
        Running running(folder.url("p.plist"));
        for (const QByteArray& damaged : {QByteArray(), QByteArray("<plist><dict>"), QByteArray("bplist00")}) {
            folder.writeFile("p.plist", damaged);
            settle();
            QCOMPARE(running.preferences.value<Key::titleFontSize>(), 21.0);
        }
        QVERIFY(running.changes.isEmpty());
        QCOMPARE(entriesOf(folder.path()), QStringList{QStringLiteral("p.plist")});
        folder.writeFile("p.plist", titleSize("22"));
        QVERIFY(running.comesToHave(22));
    }

    void twoProgramsKeepEachOthersChanges() {
        const TemporaryFolder folder;
        const FileUrl url = folder.url("config/p.plist");
        Running one(url);
        Running other(url);
        one.preferences.setValue<Key::titleFontSize>(41.0);
        QVERIFY(one.preferences.flush());
        other.preferences.setValue<Key::searchFontSize>(21.0);
        QVERIFY(other.preferences.flush());
        QVERIFY(other.comesToHave(41));
        QTRY_COMPARE(one.preferences.value<Key::searchFontSize>(), 21.0);
    }
};

QTEST_GUILESS_MAIN(PlistPreferencesOutsideTest)
#include "PlistPreferencesOutsideTest.moc"
