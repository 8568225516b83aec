#include "catalog/AppScanner.h"
#include "BundleFixture.h"
#include "catalog/BundleSource.h"
#include "catalog/NameOrder.h"
#include "platform/linux/propertylist/PlistBundleReader.h"

#include <QTest>

using namespace zelmo;

namespace {

const PlistBundleReader bundleReader;

AppScanner scannerOf(const QList<QList<FileUrl>>& rootsOfSources, const QLocale& locale = QLocale::c()) {
    std::vector<std::unique_ptr<ApplicationSource>> sources;
    for (const QList<FileUrl>& roots : rootsOfSources)
        sources.push_back(std::make_unique<BundleSource>(roots, bundleReader));
    return AppScanner(std::move(sources), locale);
}

QStringList namesOf(const QList<LaunchableApp>& apps) {
    QStringList names;
    for (const LaunchableApp& app : apps)
        names.append(app.name);
    return names;
}

// Says the same of one application at every call.
class FixedSource : public ApplicationSource {
public:
    explicit FixedSource(FoundApplication application) : m_application(std::move(application)) {}
    ApplicationListing list() const override { return {.applications = {m_application}, .folders = {}}; }

private:
    FoundApplication m_application;
};

} // namespace

class AppScannerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyEntryHoldsWhatTheBundleSays() {
        const TemporaryFolder folder;
        const BundleEntries entries{{"CFBundleDisplayName", "Sketch Pad"},
                                    {"CFBundleIconFile", "pad"},
                                    {"LSApplicationCategoryType", "public.app-category.graphics-design"}};
        makeBundle(folder, "Applications/Pad.app", entries);
        const ScanResult result = scannerOf({{folder.url("Applications")}}).scan();
        const FileUrl url = folder.url("Applications/Pad.app");
        const QList<LaunchableApp> expected{
            LaunchableApp{.id = url,
                          .name = QStringLiteral("Sketch Pad"),
                          .url = url,
                          .icon = {.name = QStringLiteral("pad"), .bundlePath = url.path()},
                          .category = AppCategory::creativity}};
        QCOMPARE(result.apps, expected);
        const QList<FileUrl> folders{folder.url("Applications"), folder.url("Applications/Pad.app/Contents")};
        QCOMPARE(result.watchedFolders, folders);
    }

    void twoScansOfTheSameFilesAreEqual() {
        const TemporaryFolder folder;
        makeBundle(folder, "Applications/A.app");
        makeBundle(folder, "Applications/B.app");
        const AppScanner scanner = scannerOf({{folder.url("Applications")}});
        const ScanResult before = scanner.scan();
        QCOMPARE(scanner.scan().apps, before.apps);
        makeBundle(folder, "Applications/B.app", {{"CFBundleIconFile", "other"}});
        QVERIFY(scanner.scan().apps != before.apps);
    }

    void theLaterOfTwoEntriesWithOneUrlStays() {
        const FileUrl url = FileUrl::fromPath(QStringLiteral("/Applications/A.app"));
        std::vector<std::unique_ptr<ApplicationSource>> sources;
        sources.push_back(std::make_unique<FixedSource>(
            FoundApplication{.url = url, .name = QStringLiteral("Early"), .categoryType = std::nullopt, .icon = {}}));
        sources.push_back(
            std::make_unique<FixedSource>(FoundApplication{.url = url,
                                                           .name = QStringLiteral("Late"),
                                                           .categoryType = QStringLiteral("public.app-category.games"),
                                                           .icon = {}}));
        const QList<LaunchableApp> apps = AppScanner(std::move(sources), QLocale::c()).scan().apps;
        QCOMPARE(namesOf(apps), QStringList{QStringLiteral("Late")});
        QVERIFY(apps[0].category == AppCategory::entertainment);
    }

    void theSameRootInTwoSourcesGivesEachBundleOnce() {
        const TemporaryFolder folder;
        makeBundle(folder, "Applications/A.app");
        makeBundle(folder, "Applications/B.app");
        const FileUrl root = folder.url("Applications");
        QCOMPARE(scannerOf({{root}, {root}}).scan().apps.size(), 2);
    }

    void namesSortAsTheLocaleWantsThem_data() {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QStringList>("sorted");
        const auto row = [](const char* locale, const QStringList& sorted) {
            QTest::newRow(locale) << QString::fromLatin1(locale) << sorted;
        };
        row("C", {QStringLiteral("Home"), QStringLiteral("iMovie"), QStringLiteral("Keynote")});
        row("en_US", {QStringLiteral("Home"), QStringLiteral("iMovie"), QStringLiteral("Keynote")});
        row("de_DE", {QStringLiteral("Äpfel"), QStringLiteral("apt"), QStringLiteral("Zebra")});
        row("sv_SE", {QStringLiteral("apt"), QStringLiteral("Zebra"), QStringLiteral("Äpfel")});
        row("tr_TR", {QStringLiteral("hız"), QStringLiteral("Irmak"), QStringLiteral("ısı"), QStringLiteral("İzmir"),
                      QStringLiteral("jale")});
    }
    void namesSortAsTheLocaleWantsThem() {
        QFETCH(QString, locale);
        QFETCH(QStringList, sorted);
        const TemporaryFolder folder;
        for (qsizetype i = 0; i < sorted.size(); ++i) {
            // File names in the opposite order.
            const QByteArray name = "Applications/" + QByteArray::number(9 - i) + ".app";
            makeBundle(folder, name, {{"CFBundleName", sorted[i].toUtf8()}});
        }
        const AppScanner scanner = scannerOf({{folder.url("Applications")}}, QLocale(locale));
        QCOMPARE(namesOf(scanner.scan().apps), sorted);
    }

    void equalNamesKeepTheOrderOfTheRoots() {
        const TemporaryFolder folder;
        const QList<QByteArray> roots{"c", "a", "b"};
        QList<FileUrl> urls;
        for (const QByteArray& root : roots) {
            makeBundle(folder, root + "/Notes.app", {{"CFBundleName", root == "a" ? "NOTES" : "notes"}});
            urls.append(folder.url(root));
        }
        const QList<LaunchableApp> apps = scannerOf({urls}).scan().apps;
        QCOMPARE(apps.size(), 3);
        for (qsizetype i = 0; i < apps.size(); ++i)
            QCOMPARE(apps[i].url, folder.url(roots[i] + "/Notes.app"));
    }
};

QTEST_GUILESS_MAIN(AppScannerTest)
#include "AppScannerTest.moc"
