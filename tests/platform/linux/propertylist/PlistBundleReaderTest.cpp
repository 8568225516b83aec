#include "platform/linux/propertylist/PlistBundleReader.h"
#include "TemporaryFolder.h"
#include "catalog/BundleFixture.h"

#include <QTest>

#include <sys/stat.h>

using namespace zelmo;

namespace {

std::optional<BundleInformation> informationOf(const TemporaryFolder& folder) {
    return PlistBundleReader().read(folder.url("X.app"));
}

const BundleEntries allEntries{{"CFBundleDisplayName", "Display"},
                               {"CFBundleName", "Name"},
                               {"LSApplicationCategoryType", "public.app-category.games"},
                               {"CFBundleIconFile", "Icon"},
                               {"CFBundleExecutable", "run"},
                               {"CFBundleIdentifier", "org.example.x"}};

} // namespace

class PlistBundleReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyValueIsRead_data() {
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("xml") << xmlInformation(allEntries);
        QTest::newRow("binary") << binaryInformation(allEntries);
    }
    void everyValueIsRead() {
        QFETCH(QByteArray, contents);
        for (const QByteArray name : {"X.app/Contents/Info.plist", "X.app/Info.plist"}) {
            const TemporaryFolder folder;
            folder.writeFile(name, contents);
            const auto information = informationOf(folder);
            QVERIFY(information);
            QCOMPARE(information->displayName, std::optional(QStringLiteral("Display")));
            QCOMPARE(information->bundleName, std::optional(QStringLiteral("Name")));
            QCOMPARE(information->categoryType, std::optional(QStringLiteral("public.app-category.games")));
            QCOMPARE(information->iconFile, std::optional(QStringLiteral("Icon")));
            QCOMPARE(information->executable, std::optional(QStringLiteral("run")));
        }
    }

    void theListInContentsIsTheOneThatCounts() {
        const TemporaryFolder folder;
        folder.writeFile("X.app/Contents/Info.plist", xmlInformation({{"CFBundleName", "Inner"}}));
        folder.writeFile("X.app/Info.plist", xmlInformation({{"CFBundleName", "Outer"}}));
        QCOMPARE(informationOf(folder)->bundleName, std::optional(QStringLiteral("Inner")));
        folder.writeFile("X.app/Contents/Info.plist", "damaged");
        QVERIFY(!informationOf(folder));
    }

    void onlyStringsCountAndEmptyOnesDo() {
        const TemporaryFolder folder;
        folder.writeFile("X.app/Contents/Info.plist",
                         "<plist version=\"1.0\"><dict><key>CFBundleDisplayName</key><integer>1</integer>"
                         "<key>CFBundleName</key><string></string><key>CFBundleIconFile</key><array/>"
                         "<key>CFBundleExecutable</key><true/><key>LSApplicationCategoryType</key><dict/>"
                         "</dict></plist>");
        const auto information = informationOf(folder);
        QVERIFY(information);
        QCOMPARE(information->bundleName, std::optional(QString(u""_qs)));
        QVERIFY(!information->displayName && !information->iconFile);
        QVERIFY(!information->executable && !information->categoryType);
    }

    void whatCanNotBeReadGivesNothing() {
        const TemporaryFolder folder;
        QVERIFY(!informationOf(folder));
        folder.makeFolders("X.app/Contents");
        QVERIFY(!informationOf(folder));
        const QByteArray path = folder.path("X.app/Contents/Info.plist");
        QVERIFY(mkfifo(path.constData(), 0600) == 0);
        QVERIFY(!informationOf(folder));
        unlink(path.constData());
        folder.makeFolders("X.app/Contents/Info.plist");
        QVERIFY(!informationOf(folder));
        rmdir(path.constData());
        folder.link("X.app/Contents/Info.plist", "/dev/zero");
        QVERIFY(!informationOf(folder));
    }

    void aListOfOneMebibyteIsReadAndALargerOneIsNot() {
        const TemporaryFolder folder;
        QByteArray contents = xmlInformation({{"CFBundleName", "Name"}});
        contents += QByteArray(1024 * 1024 - contents.size(), '\n');
        folder.writeFile("X.app/Contents/Info.plist", contents);
        QVERIFY(informationOf(folder));
        folder.writeFile("X.app/Contents/Info.plist", contents + '\n');
        QVERIFY(!informationOf(folder));
    }
};

QTEST_GUILESS_MAIN(PlistBundleReaderTest)
#include "PlistBundleReaderTest.moc"
