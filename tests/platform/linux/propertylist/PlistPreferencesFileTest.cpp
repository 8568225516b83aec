#include "PreferencesFileFixture.h"

#include <QScopeGuard>
#include <QTest>

#include <cmath>
#include <limits>
#include <plist/plist.h>

using namespace zelmo;

namespace {

QByteArray toBinary(const QByteArray& xml) {
    plist_t root = nullptr;
    plist_from_xml(xml.constData(), static_cast<std::uint32_t>(xml.size()), &root);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    const QByteArray result(bytes, static_cast<qsizetype>(length));
    plist_to_bin_free(bytes);
    plist_free(root);
    return result;
}

// An entry of a file in the library's own XML, whatever the form of the file.
QByteArray entryOf(const QByteArray& contents, const char* key) {
    plist_t root = nullptr;
    plist_from_memory(contents.constData(), static_cast<std::uint32_t>(contents.size()), &root);
    char* text = nullptr;
    std::uint32_t length = 0;
    if (plist_t entry = plist_dict_get_item(root, key))
        plist_to_xml(entry, &text, &length);
    const QByteArray result(text, static_cast<qsizetype>(length));
    plist_to_xml_free(text);
    plist_free(root);
    return result;
}

const QByteArray unknownEntries = "<key>theirDate</key><date>2150-01-02T03:04:05Z</date>"
                                  "<key>theirNumber</key><integer>-7</integer>"
                                  "<key>theirReal</key><real>0.1</real>"
                                  "<key>theirTree</key><dict><key>a</key><array><true/><data>AAE=</data>"
                                  "<dict/></array></dict>"
                                  "<key>hiddenAppPaths</key><array><string>/a</string><integer>1</integer></array>";

} // namespace

class PlistPreferencesFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFileLiesInTheConfigurationFolder() {
        const QByteArray oldConfiguration = qgetenv("XDG_CONFIG_HOME");
        const QByteArray oldHome = qgetenv("HOME");
        const auto restore = qScopeGuard([&] {
            qputenv("XDG_CONFIG_HOME", oldConfiguration);
            qputenv("HOME", oldHome);
        });
        qputenv("HOME", "/home/ada");
        const auto path = [] { return PlistPreferencesFile::standardFile().path(); };
        qputenv("XDG_CONFIG_HOME", "/elsewhere/conf");
        QCOMPARE(path(), QStringLiteral("/elsewhere/conf/zelmo/preferences.plist"));
        for (const char* unusable : {"", "conf", "./conf", "~/conf"}) {
            qputenv("XDG_CONFIG_HOME", unusable);
            QCOMPARE(path(), QStringLiteral("/home/ada/.config/zelmo/preferences.plist"));
        }
        qunsetenv("XDG_CONFIG_HOME");
        QCOMPARE(path(), QStringLiteral("/home/ada/.config/zelmo/preferences.plist"));
        qunsetenv("HOME");
        QVERIFY(path().startsWith(u'/'));
        QVERIFY(path().endsWith(QStringLiteral("/.config/zelmo/preferences.plist")));
    }

    void aMissingFileIsEmptyAndIsNotMadeByReading() {
        const TemporaryFolder folder;
        PlistPreferencesFile file(folder.url("config/zelmo/preferences.plist"));
        QVERIFY(file.read().isEmpty());
        QVERIFY(entriesOf(folder.path()).isEmpty());
    }

    void everyTypeSurvivesARestart() {
        const TemporaryFolder folder;
        const FileUrl url = folder.url("config/zelmo/preferences.plist");
        const QByteArray records = QByteArray::fromHex("00ff10") + QByteArray(3'000'000, '\x7f');
        const QStringList paths{QStringLiteral("/b.app"), QString(u""_qs), QStringLiteral("/ä\n\x1b.app")};
        {
            PlistPreferencesFile file(url);
            Preferences preferences(file);
            preferences.setValue<Key::appIconStyle>(QStringLiteral("spark"));
            preferences.setValue<Key::titleFontSize>(36.1);
            preferences.setValue<Key::showAppTileBackground>(true);
            preferences.setValue<Key::openAtLoginLater>(false);
            preferences.setValue<Key::appUsageRecords>(records);
            preferences.setValue<Key::hiddenAppPaths>(paths);
        }
        PlistPreferencesFile file(url);
        const Preferences preferences(file);
        QCOMPARE(preferences.stored<Key::appIconStyle>(), std::optional(QStringLiteral("spark")));
        QCOMPARE(preferences.stored<Key::titleFontSize>(), std::optional(36.1));
        QCOMPARE(preferences.stored<Key::showAppTileBackground>(), std::optional(true));
        QCOMPARE(preferences.stored<Key::openAtLoginLater>(), std::optional(false));
        QVERIFY(preferences.stored<Key::appUsageRecords>() == records);
        QCOMPARE(preferences.stored<Key::hiddenAppPaths>(), std::optional(paths));
        QVERIFY(!preferences.stored<Key::subtitleFontSize>());
        QCOMPARE(entriesOf(folder.path("config/zelmo")), QStringList{QStringLiteral("preferences.plist")});
    }

    void aFileThatAPersonWroteIsRead() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", xmlPreferences("<!-- mine --><key>titleFontSize</key><integer>40</integer>"
                                                   "<key>launcherBackgroundRed</key><string>0.9</string>"
                                                   "<key>showAppTileBackground</key><true/>"));
        PlistPreferencesFile file(folder.url("p.plist"));
        const Preferences preferences(file);
        QCOMPARE(preferences.value<Key::titleFontSize>(), 40.0);
        QCOMPARE(preferences.value<Key::launcherBackgroundRed>(), 0.05);
        QCOMPARE(preferences.value<Key::showAppTileBackground>(), true);
    }

    void newFilesAreXmlForTheOwnerAlone() {
        const TemporaryFolder folder;
        const mode_t oldMask = umask(0);
        PlistPreferencesFile file(folder.url("a/b/p.plist"));
        const bool written = file.write({{nameOf(Key::titleFontSize), 40.0}});
        umask(oldMask);
        QVERIFY(written);
        QVERIFY(TemporaryFolder::contentsOf(folder.path("a/b/p.plist")).startsWith("<?xml"));
        QCOMPARE(modeOf(folder.path("a/b/p.plist")), mode_t{0600});
        QCOMPARE(modeOf(folder.path("a")), mode_t{0700});
        QCOMPARE(modeOf(folder.path("a/b")), mode_t{0700});
    }

    void theModeOfAFileStays() {
        const TemporaryFolder folder;
        const QByteArray path = folder.writeFile("p.plist", xmlPreferences(""));
        for (const mode_t mode : {mode_t{0644}, mode_t{0640}, mode_t{0400}}) {
            chmod(path.constData(), mode);
            PlistPreferencesFile file(folder.url("p.plist"));
            QVERIFY(file.write({{nameOf(Key::titleFontSize), double(mode)}}));
            QCOMPARE(modeOf(path), mode);
        }
    }

    void whatTheProgramDoesNotKnowStays_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::newRow("xml") << xmlPreferences(unknownEntries);
        QTest::newRow("binary") << toBinary(xmlPreferences(unknownEntries));
    }
    void whatTheProgramDoesNotKnowStays() {
        QFETCH(QByteArray, before);
        const TemporaryFolder folder;
        const QByteArray path = folder.writeFile("p.plist", before);
        PlistPreferencesFile file(folder.url("p.plist"));
        {
            Preferences preferences(file);
            QVERIFY(!preferences.stored<Key::hiddenAppPaths>());
            preferences.setValue<Key::titleFontSize>(40.0);
        }
        const QByteArray after = TemporaryFolder::contentsOf(path);
        QVERIFY(after != before);
        for (const char* key : {"theirDate", "theirNumber", "theirReal", "theirTree", "hiddenAppPaths"}) {
            QVERIFY(!entryOf(before, key).isEmpty());
            QCOMPARE(entryOf(after, key), entryOf(before, key));
        }
        QCOMPARE(after.startsWith("bplist"), before.startsWith("bplist"));
        QVERIFY(storedIn(folder.url("p.plist")).value(nameOf(Key::titleFontSize)) == PreferenceValue(40.0));
    }

    void changesAreLaidOverWhatIsInTheFileNow() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", xmlPreferences("<key>titleFontSize</key><real>30</real>"));
        PlistPreferencesFile file(folder.url("p.plist"));
        QCOMPARE(file.read().size(), 1);
        folder.writeFile("p.plist", xmlPreferences("<key>titleFontSize</key><real>31</real>"
                                                   "<key>searchFontSize</key><real>20</real>"));
        QVERIFY(file.write({{nameOf(Key::subtitleFontSize), 13.0}}));
        const PreferenceValues expected{{nameOf(Key::titleFontSize), 31.0},
                                        {nameOf(Key::searchFontSize), 20.0},
                                        {nameOf(Key::subtitleFontSize), 13.0}};
        QCOMPARE(storedIn(folder.url("p.plist")), expected);
    }

    void theTargetOfALinkIsReplacedAndNotTheLink() {
        const TemporaryFolder folder;
        folder.writeFile("dotfiles/zelmo.plist", xmlPreferences("<key>titleFontSize</key><real>30</real>"));
        folder.link("dotfiles/middle", "zelmo.plist");
        folder.makeFolders("config");
        folder.link("config/p.plist", "../dotfiles/middle");
        PlistPreferencesFile file(folder.url("config/p.plist"));
        QVERIFY(file.read().value(nameOf(Key::titleFontSize)) == PreferenceValue(30.0));
        QVERIFY(file.write({{nameOf(Key::titleFontSize), 31.0}}));
        QVERIFY(QFileInfo(QString::fromUtf8(folder.path("config/p.plist"))).isSymLink());
        QVERIFY(QFileInfo(QString::fromUtf8(folder.path("dotfiles/middle"))).isSymLink());
        QVERIFY(TemporaryFolder::contentsOf(folder.path("dotfiles/zelmo.plist")).contains("31"));
        QCOMPARE(entriesOf(folder.path("config")).size(), 1);
        QCOMPARE(entriesOf(folder.path("dotfiles")).size(), 2);
    }

    void theTargetOfALinkIsMadeWhereItIsMissing() {
        const TemporaryFolder folder;
        folder.link("p.plist", "not/yet/there.plist");
        PlistPreferencesFile file(folder.url("p.plist"));
        QVERIFY(file.read().isEmpty());
        QVERIFY(file.write({{nameOf(Key::titleFontSize), 31.0}}));
        QVERIFY(TemporaryFolder::exists(folder.path("not/yet/there.plist")));
        QCOMPARE(storedIn(folder.url("p.plist")).size(), 1);
    }

    void realsThatAreNoNumbersSurvive() {
        const TemporaryFolder folder;
        const double infinity = std::numeric_limits<double>::infinity();
        PlistPreferencesFile file(folder.url("p.plist"));
        QVERIFY(file.write({{nameOf(Key::titleFontSize), infinity},
                            {nameOf(Key::subtitleFontSize), -infinity},
                            {nameOf(Key::searchFontSize), std::nan("")}}));
        const PreferenceValues stored = storedIn(folder.url("p.plist"));
        QVERIFY(stored.value(nameOf(Key::titleFontSize)) == PreferenceValue(infinity));
        QVERIFY(stored.value(nameOf(Key::subtitleFontSize)) == PreferenceValue(-infinity));
        QVERIFY(std::isnan(std::get<double>(stored.value(nameOf(Key::searchFontSize)))));
    }

    void abandonedFilesGoAtTheStartAndOthersStay() {
        const TemporaryFolder folder;
        folder.writeFile("p.plist", xmlPreferences(""));
        folder.writeFile(".p.plist.new-aB3dE6", "half a fi");
        folder.writeFile(".p.plist.new-other.name", "x");
        folder.writeFile(".q.plist.new-aB3dE6", "x");
        folder.makeFolders(".p.plist.new-folder");
        const PlistPreferencesFile file(folder.url("p.plist"));
        const QStringList expected{QStringLiteral(".p.plist.new-folder"), QStringLiteral(".p.plist.new-other.name"),
                                   QStringLiteral(".q.plist.new-aB3dE6"), QStringLiteral("p.plist")};
        QCOMPARE(entriesOf(folder.path()), expected);
    }
};

QTEST_GUILESS_MAIN(PlistPreferencesFileTest)
#include "PlistPreferencesFileTest.moc"
