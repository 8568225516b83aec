#include "PreferencesFileFixture.h"

#include <QRegularExpression>
#include <QTest>

#include <csignal>
#include <sys/mount.h>
#include <sys/resource.h>

using namespace zelmo;

namespace {

const QByteArray soundContents = xmlPreferences("<key>titleFontSize</key><real>30</real><key>theirs</key><date>"
                                                "2024-02-29T12:00:00Z</date>");

void expectSetAside(const QByteArray& to) {
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("can't be read.*") + QString::fromUtf8(to) + u'$'));
}

// While it lives, a file that would grow beyond the limit refuses to.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*m_oldHandler)(int) = std::signal(SIGXFSZ, SIG_IGN);
    rlimit m_old{};
};

// While it lives, a folder has room for 64 KiB. Only root can mount such a disk; for others the limit on the
// size of a file has writing fail halfway just the same.
class SmallDisk {
public:
    explicit SmallDisk(const QByteArray& folder) : m_folder(folder) {
        m_isMounted = mount("none", folder.constData(), "tmpfs", 0, "size=64k") == 0;
        if (!m_isMounted)
            m_limit.emplace(64 * 1024);
    }
    ~SmallDisk() {
        if (m_isMounted)
            umount(m_folder.constData());
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    QByteArray m_folder;
    bool m_isMounted = false;
    std::optional<FileSizeLimit> m_limit;
};

} // namespace

class PlistPreferencesFailureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFileThatCanNotBeReadIsSetAsideAtTheStart_data() {
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("cut short") << soundContents.left(soundContents.size() / 2);
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("other text") << QByteArray("titleFontSize = 30\n");
        QTest::newRow("not a dictionary") << QByteArray("<plist version=\"1.0\"><array/></plist>");
        QTest::newRow("deep") << QByteArray("<plist>" + QByteArray("<array>").repeated(100'000));
        QTest::newRow("too large") << QByteArray(soundContents + QByteArray(5000, ' '));
    }
    void aFileThatCanNotBeReadIsSetAsideAtTheStart() {
        QFETCH(QByteArray, contents);
        const TemporaryFolder folder;
        folder.writeFile("p.plist", contents);
        folder.writeFile("p.plist.unreadable", "an older one");
        folder.link("p.plist.unreadable-2", "nowhere");
        PlistPreferencesFile file(folder.url("p.plist"), 4096);
        expectSetAside(folder.path("p.plist.unreadable-3"));
        QVERIFY(file.read().isEmpty());
        QVERIFY(!TemporaryFolder::exists(folder.path("p.plist")));
        QCOMPARE(TemporaryFolder::contentsOf(folder.path("p.plist.unreadable-3")), contents);
        QCOMPARE(TemporaryFolder::contentsOf(folder.path("p.plist.unreadable")), QByteArray("an older one"));
        QVERIFY(file.write({{nameOf(Key::titleFontSize), 40.0}}));
        QCOMPARE(storedIn(folder.url("p.plist")).size(), 1);
    }

    void whatIsNoFileIsSetAside() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist/inside", "x");
        PlistPreferencesFile file(folder.url("p.plist"));
        expectSetAside(folder.path("p.plist.unreadable"));
        QVERIFY(file.read().isEmpty());
        QVERIFY(TemporaryFolder::exists(folder.path("p.plist.unreadable/inside")));
        QVERIFY(file.write({{nameOf(Key::titleFontSize), 40.0}}));
    }

    void theTargetOfALinkIsSetAsideBesideItself() {
        const TemporaryFolder folder;
        folder.writeFile("real/f.plist", "damaged");
        folder.link("p.plist", "real/f.plist");
        PlistPreferencesFile file(folder.url("p.plist"));
        expectSetAside(folder.path("real/f.plist.unreadable"));
        QVERIFY(file.read().isEmpty());
        QVERIFY(file.write({{nameOf(Key::titleFontSize), 40.0}}));
        QVERIFY(TemporaryFolder::contentsOf(folder.path("real/f.plist")).contains("40"));
        QCOMPARE(TemporaryFolder::contentsOf(folder.path("real/f.plist.unreadable")), QByteArray("damaged"));
    }

    void aFileThatBecomesUnreadableStaysUntilTheNextWrite() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", soundContents);
        PlistPreferencesFile file(folder.url("p.plist"));
        QCOMPARE(file.read().size(), 1);
        folder.writeFile("p.plist", "<plist><dict><key>tit");
        QVERIFY(file.read().value(nameOf(Key::titleFontSize)) == PreferenceValue(30.0));
        QCOMPARE(entriesOf(folder.path()).size(), 1);
        expectSetAside(folder.path("p.plist.unreadable"));
        QVERIFY(file.write({{nameOf(Key::searchFontSize), 20.0}}));
        QCOMPARE(TemporaryFolder::contentsOf(folder.path("p.plist.unreadable")), QByteArray("<plist><dict><key>tit"));
        const PreferenceValues expected{{nameOf(Key::titleFontSize), 30.0}, {nameOf(Key::searchFontSize), 20.0}};
        QCOMPARE(storedIn(folder.url("p.plist")), expected);
        QVERIFY(TemporaryFolder::contentsOf(folder.path("p.plist")).contains("2024-02-29T12:00:00Z"));
    }

    void aFileThatMayNotBeReadIsFollowedByOneThatMay() {
        const TemporaryFolder folder;
        chmod(folder.path().constData(), 0777);
        const OrdinaryUser user;
        folder.writeFile("p.plist", soundContents);
        PlistPreferencesFile file(folder.url("p.plist"));
        QCOMPARE(file.read().size(), 1);
        chmod(folder.path("p.plist").constData(), 0);
        expectSetAside(folder.path("p.plist.unreadable"));
        QVERIFY(file.write({{nameOf(Key::searchFontSize), 20.0}}));
        QCOMPARE(storedIn(folder.url("p.plist")).size(), 2);
        QVERIFY(file.write({{nameOf(Key::searchFontSize), 21.0}}));
        QCOMPARE(entriesOf(folder.path()).size(), 2);
    }

    void aFileThatIsMendedBeforeTheNextWriteIsNotSetAside() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", soundContents);
        PlistPreferencesFile file(folder.url("p.plist"));
        file.read();
        folder.writeFile("p.plist", "");
        file.read();
        folder.writeFile("p.plist", xmlPreferences("<key>titleFontSize</key><real>31</real>"));
        QVERIFY(file.write({{nameOf(Key::searchFontSize), 20.0}}));
        const PreferenceValues expected{{nameOf(Key::titleFontSize), 31.0}, {nameOf(Key::searchFontSize), 20.0}};
        QCOMPARE(storedIn(folder.url("p.plist")), expected);
        QCOMPARE(entriesOf(folder.path()).size(), 1);
    }

    void aFolderThatMayNotBeWrittenRefusesAndKeepsTheFile_data() {
        QTest::addColumn<QByteArray>("contents");
        QTest::addColumn<int>("values");
        QTest::newRow("readable") << soundContents << 1;
        QTest::newRow("unreadable") << QByteArray("damaged") << 0;
    }
    void aFolderThatMayNotBeWrittenRefusesAndKeepsTheFile() {
        QFETCH(QByteArray, contents);
        QFETCH(int, values);
        const TemporaryFolder folder;
        chmod(folder.path().constData(), 0755);
        folder.writeFile("config/p.plist", contents);
        chmod(folder.path("config").constData(), 0555);
        {
            const OrdinaryUser user;
            PlistPreferencesFile file(folder.url("config/p.plist"));
            if (values == 0)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("can't be renamed")));
            QCOMPARE(file.read().size(), values);
            QVERIFY(!file.write({{nameOf(Key::searchFontSize), 20.0}}));
            QCOMPARE(file.read().size(), values);
            PlistPreferencesFile below(folder.url("config/new/p.plist"));
            QVERIFY(!below.write({{nameOf(Key::searchFontSize), 20.0}}));
        }
        chmod(folder.path("config").constData(), 0755);
        QCOMPARE(TemporaryFolder::contentsOf(folder.path("config/p.plist")), contents);
        QCOMPARE(entriesOf(folder.path("config")).size(), 1);
    }

    void whatCanNotBeSetAsideIsNotReplaced() {
        const TemporaryFolder folder;
        // No name is left to set it aside under that the file system would take.
        const QByteArray name = QByteArray(240, 'p') + ".plist";
        const QByteArray path = folder.writeFile("p", soundContents);
        std::rename(path.constData(), folder.path(name).constData());
        PlistPreferencesFile file(folder.url(name));
        QCOMPARE(file.read().size(), 1);
        folder.writeFile(name, "damaged");
        QVERIFY(!file.write({{nameOf(Key::searchFontSize), 20.0}}));
        QCOMPARE(TemporaryFolder::contentsOf(folder.path(name)), QByteArray("damaged"));
        QCOMPARE(entriesOf(folder.path()).size(), 1);
        QCOMPARE(file.read().size(), 1);
    }

    void aLimitOnFileSizeRefusesAndKeepsTheFile() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", soundContents);
        PlistPreferencesFile file(folder.url("p.plist"));
        QCOMPARE(file.read().size(), 1);
        bool written = true;
        {
            const FileSizeLimit limit(8192);
            written = file.write({{nameOf(Key::appUsageRecords), QByteArray(100'000, 'x')}});
        }
        QVERIFY(!written);
        QCOMPARE(TemporaryFolder::contentsOf(folder.path("p.plist")), soundContents);
        QCOMPARE(entriesOf(folder.path()).size(), 1);
        QVERIFY(file.write({{nameOf(Key::appUsageRecords), QByteArray(100'000, 'x')}}));
    }

    void aFullDiskRefusesAndKeepsTheFile() {
        const TemporaryFolder folder;
        const QByteArray disk = folder.makeFolders("disk");
        const SmallDisk smallDisk(disk);
        const QByteArray path = folder.writeFile("disk/p.plist", soundContents);
        PlistPreferencesFile file(folder.url("disk/p.plist"));
        QCOMPARE(file.read().size(), 1);
        QVERIFY(!file.write({{nameOf(Key::appUsageRecords), QByteArray(100'000, 'x')}}));
        QCOMPARE(TemporaryFolder::contentsOf(path), soundContents);
        QCOMPARE(entriesOf(disk).size(), 1);
        QVERIFY(file.write({{nameOf(Key::searchFontSize), 20.0}}));
    }

    void aFileThatWouldGrowBeyondWhatIsReadIsNotWritten() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", soundContents);
        PlistPreferencesFile file(folder.url("p.plist"), 4096);
        QVERIFY(!file.write({{nameOf(Key::appUsageRecords), QByteArray(5000, 'x')}}));
        QCOMPARE(TemporaryFolder::contentsOf(folder.path("p.plist")), soundContents);
        QVERIFY(file.write({{nameOf(Key::appUsageRecords), QByteArray(50, 'x')}}));
    }

    void refusedWritesLeaveThePreferencesInForce() {
        const TemporaryFolder folder;
        folder.writeFile("config", "a file where the folder should be");
        PlistPreferencesFile file(folder.url("config/p.plist"));
        Preferences preferences(file);
        preferences.setValue<Key::titleFontSize>(40.0);
        QVERIFY(!preferences.flush());
        QCOMPARE(preferences.value<Key::titleFontSize>(), 40.0);
        unlink(folder.path("config").constData());
        QVERIFY(preferences.flush());
        QCOMPARE(storedIn(folder.url("config/p.plist")).size(), 1);
    }
};

QTEST_GUILESS_MAIN(PlistPreferencesFailureTest)
#include "PlistPreferencesFailureTest.moc"
