#include "catalog/BundleSource.h"
#include "BundleFixture.h"
#include "platform/linux/propertylist/PlistBundleReader.h"

#include <QTest>

using namespace zelmo;

namespace {

const PlistBundleReader bundleReader;

ApplicationListing listOf(const QList<FileUrl>& roots) {
    return BundleSource(roots, bundleReader).list();
}

QStringList namesOf(const ApplicationListing& listing) {
    QStringList names;
    for (const FoundApplication& application : listing.applications)
        names.append(application.name);
    names.sort();
    return names;
}

QString onlyName(const TemporaryFolder& folder) {
    const ApplicationListing listing = listOf({folder.url("Applications")});
    return listing.applications.size() == 1 ? listing.applications[0].name : QStringLiteral("(not one entry)");
}

QByteArray numberAsDisplayName(const QByteArray& more = {}) {
    return "<plist version=\"1.0\"><dict><key>CFBundleDisplayName</key><integer>5</integer>" + more + "</dict></plist>";
}

} // namespace

class BundleSourceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theStandardRootsAreTheSystemsAndTheUsers() {
        const QList<FileUrl> roots = BundleSource::standardRoots(FileUrl::fromPath(QStringLiteral("/home/ada")));
        QCOMPARE(roots.size(), 3);
        QCOMPARE(roots[0].path(), QStringLiteral("/Applications"));
        QCOMPARE(roots[1].path(), QStringLiteral("/System/Applications"));
        QCOMPARE(roots[2].path(), QStringLiteral("/home/ada/Applications"));
    }

    void rootsAreListedInOrderAndAMissingOneIsPassedOver() {
        const TemporaryFolder folder;
        makeBundle(folder, "Applications/A.app");
        makeBundle(folder, "home/Applications/B.app");
        const ApplicationListing listing =
            listOf({folder.url("Applications"), folder.url("System/Applications"), folder.url("home/Applications")});
        QCOMPARE(listing.applications.size(), 2);
        QCOMPARE(listing.applications[0].url, folder.url("Applications/A.app"));
        QCOMPARE(listing.applications[1].url, folder.url("home/Applications/B.app"));
        const QList<FileUrl> expected{folder.url("Applications"), folder.url("System/Applications"),
                                      folder.url("home/Applications"), folder.url("Applications/A.app/Contents"),
                                      folder.url("home/Applications/B.app/Contents")};
        QCOMPARE(listing.folders, expected);
    }

    void theSameProgramInTwoRootsGivesTwoEntries() {
        const TemporaryFolder folder;
        makeBundle(folder, "one/Notes.app", {{"CFBundleName", "Notes"}});
        makeBundle(folder, "two/Notes.app", {{"CFBundleName", "Notes"}});
        QCOMPARE(namesOf(listOf({folder.url("one"), folder.url("two")})),
                 (QStringList{QStringLiteral("Notes"), QStringLiteral("Notes")}));
    }

    void bundlesDescribeThemselvesInXmlOrBinary_data() {
        QTest::addColumn<QByteArray>("contents");
        const BundleEntries entries{{"CFBundleDisplayName", "Überblick"},
                                    {"CFBundleName", "Overview"},
                                    {"LSApplicationCategoryType", "public.app-category.utilities"},
                                    {"CFBundleIconFile", "Icon.icns"}};
        QTest::newRow("xml") << xmlInformation(entries);
        QTest::newRow("binary") << binaryInformation(entries);
    }
    void bundlesDescribeThemselvesInXmlOrBinary() {
        QFETCH(QByteArray, contents);
        const TemporaryFolder folder;
        folder.writeFile("Applications/X.app/Contents/Info.plist", contents);
        const ApplicationListing listing = listOf({folder.url("Applications")});
        QCOMPARE(listing.applications.size(), 1);
        const FoundApplication& found = listing.applications[0];
        QCOMPARE(found.name, QStringLiteral("Überblick"));
        QCOMPARE(found.categoryType, std::optional(QStringLiteral("public.app-category.utilities")));
        QCOMPARE(found.icon.name, QStringLiteral("Icon.icns"));
        QCOMPARE(found.icon.bundlePath, folder.url("Applications/X.app").path());
    }

    void namesComeFromTheListThenFromTheFile_data() {
        QTest::addColumn<QByteArray>("contents");
        QTest::addColumn<QString>("name");
        QTest::newRow("display name") << xmlInformation({{"CFBundleName", "Short"}, {"CFBundleDisplayName", "Long"}})
                                      << QStringLiteral("Long");
        QTest::newRow("bundle name") << xmlInformation({{"CFBundleName", "Short"}}) << QStringLiteral("Short");
        QTest::newRow("neither") << xmlInformation({}) << QStringLiteral("My.Notes");
        QTest::newRow("a number") << numberAsDisplayName() << QStringLiteral("My.Notes");
        QTest::newRow("a number and a name")
            << numberAsDisplayName("<key>CFBundleName</key><string>Short</string>") << QStringLiteral("Short");
        QTest::newRow("empty display name")
            << xmlInformation({{"CFBundleName", "Short"}, {"CFBundleDisplayName", ""}}) << QString(u""_qs);
        QTest::newRow("damaged") << QByteArray("<plist><dict><key>CFBundleName</key><string>Sho")
                                 << QStringLiteral("My.Notes");
        QTest::newRow("root is an array") << QByteArray("<plist><array/></plist>") << QStringLiteral("My.Notes");
    }
    void namesComeFromTheListThenFromTheFile() {
        QFETCH(QByteArray, contents);
        QFETCH(QString, name);
        const TemporaryFolder folder;
        folder.writeFile("Applications/My.Notes.app/Contents/Info.plist", contents);
        QCOMPARE(onlyName(folder), name);
    }

    void aBundleWithoutAnythingInItIsAnEntry() {
        const TemporaryFolder folder;
        folder.makeFolders("Applications/Bare.app");
        QCOMPARE(onlyName(folder), QStringLiteral("Bare"));
    }

    void aPlainFileWithABundlesNameIsAnEntry() {
        const TemporaryFolder folder;
        folder.writeFile("Applications/File.app", "x");
        folder.writeFile("Applications/File.txt", "x");
        QCOMPARE(onlyName(folder), QStringLiteral("File"));
    }

    void foldersAreEnteredAtAnyDepthButBundlesAreNot() {
        const TemporaryFolder folder;
        makeBundle(folder, "Applications/a/b/c/d/Deep.app");
        makeBundle(folder, "Applications/Outer.app");
        makeBundle(folder, "Applications/Outer.app/Contents/Inner.app");
        makeBundle(folder, "Applications/Outer.app/Inner.app");
        QCOMPARE(namesOf(listOf({folder.url("Applications")})),
                 (QStringList{QStringLiteral("Deep"), QStringLiteral("Outer")}));
    }

    void theExtensionIsComparedExactly() {
        const TemporaryFolder folder;
        makeBundle(folder, "Applications/Tools.APP/Inside.app");
        makeBundle(folder, "Applications/Tools.App/Other.app");
        makeBundle(folder, "Applications/Tools.app.bak/Third.app");
        const ApplicationListing listing = listOf({folder.url("Applications")});
        QCOMPARE(namesOf(listing),
                 (QStringList{QStringLiteral("Inside"), QStringLiteral("Other"), QStringLiteral("Third")}));
        QVERIFY(listing.folders.contains(folder.url("Applications/Tools.APP")));
    }

    void hiddenFilesAndFoldersAreSkipped() {
        const TemporaryFolder folder;
        makeBundle(folder, "Applications/.Hidden.app");
        makeBundle(folder, "Applications/.hidden/Inside.app");
        makeBundle(folder, "Applications/.app");
        makeBundle(folder, "Applications/Seen.app");
        QCOMPARE(onlyName(folder), QStringLiteral("Seen"));
    }

    void aLinkToAFolderIsNotEntered() {
        const TemporaryFolder folder;
        makeBundle(folder, "elsewhere/Away.app");
        folder.makeFolders("Applications/sub");
        folder.link("Applications/elsewhere", folder.path("elsewhere"));
        folder.link("Applications/sub/loop", folder.path("Applications"));
        folder.link("Applications/self", "self");
        QVERIFY(listOf({folder.url("Applications")}).applications.isEmpty());
    }

    void aLinkWithABundlesNameIsAnEntry() {
        const TemporaryFolder folder;
        makeBundle(folder, "elsewhere/Away.app", {{"CFBundleName", "Away from here"}});
        folder.makeFolders("Applications");
        folder.link("Applications/Linked.app", folder.path("elsewhere/Away.app"));
        folder.link("Applications/Dangling.app", "nowhere");
        folder.link("Applications/Circle.app", "Circle.app");
        const ApplicationListing listing = listOf({folder.url("Applications")});
        QCOMPARE(namesOf(listing),
                 (QStringList{QStringLiteral("Away from here"), QStringLiteral("Circle"), QStringLiteral("Dangling")}));
        for (const FoundApplication& application : listing.applications)
            QVERIFY(application.url.path().startsWith(folder.url("Applications/").path()));
    }

    void aRootThatIsALinkIsEntered() {
        const TemporaryFolder folder;
        makeBundle(folder, "real/A.app");
        folder.link("Applications", "real");
        QCOMPARE(onlyName(folder), QStringLiteral("A"));
    }

    void whatMayNotBeReadIsPassedOver() {
        const TemporaryFolder folder;
        chmod(folder.path().constData(), 0755);
        makeBundle(folder, "Applications/Closed/Never.app");
        makeBundle(folder, "Applications/Secret.app", {{"CFBundleName", "Not to be read"}});
        makeBundle(folder, "Applications/Open.app", {{"CFBundleName", "Read"}});
        chmod(folder.path("Applications/Closed").constData(), 0);
        chmod(folder.path("Applications/Secret.app/Contents/Info.plist").constData(), 0);
        ApplicationListing listing;
        {
            const OrdinaryUser user;
            listing = listOf({folder.url("Applications")});
        }
        chmod(folder.path("Applications/Closed").constData(), 0755);
        QCOMPARE(namesOf(listing), (QStringList{QStringLiteral("Read"), QStringLiteral("Secret")}));
        QVERIFY(listing.folders.contains(folder.url("Applications/Closed")));
    }

    void namesThatAreNotUnicodeKeepTheirBytes() {
        const TemporaryFolder folder;
        makeBundle(folder, "Applications/Caf\xe9.app");
        makeBundle(folder, "Applications/B\xfc"
                           "ro/Inside.app");
        const ApplicationListing listing = listOf({folder.url("Applications")});
        QCOMPARE(namesOf(listing), (QStringList{QStringLiteral("Caf\uFFFD"), QStringLiteral("Inside")}));
        for (const FoundApplication& application : listing.applications)
            QVERIFY(TemporaryFolder::exists(application.url.nativePath()));
    }
};

QTEST_GUILESS_MAIN(BundleSourceTest)
#include "BundleSourceTest.moc"
