// How long a scan of many bundles and a write of many preferences take, beside reading the same
// files without looking at what is in them.

#include "catalog/BundleSource.h"
#include "platform/linux/files/InotifyFolderWatcher.h"
#include "platform/linux/files/RegularFile.h"
#include "platform/linux/propertylist/PlistBundleReader.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace zelmo;

namespace {

constexpr int bundleCount = 1000;

QByteArray informationOf(int number, int otherEntries) {
    QByteArray text("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<!DOCTYPE plist PUBLIC \"-//Example//DTD PLIST 1.0//EN\" "
                    "\"http://www.example.org/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n<dict>\n");
    for (const char* key : {"CFBundleDisplayName", "CFBundleName", "CFBundleIconFile", "CFBundleExecutable"})
        text += "\t<key>" + QByteArray(key) + "</key>\n\t<string>Program " + QByteArray::number(number) + "</string>\n";
    text += "\t<key>LSApplicationCategoryType</key>\n\t<string>public.app-category.utilities</string>\n";
    for (int i = 0; i < otherEntries; ++i)
        text += "\t<key>OtherKey" + QByteArray::number(i) +
                "</key>\n\t<array>\n\t\t<string>value</string>\n\t\t<dict>" +
                "<key>a</key><integer>1</integer></dict>\n\t</array>\n";
    return text + "</dict>\n</plist>\n";
}

class Bundles {
public:
    explicit Bundles(int otherEntries) {
        for (int i = 0; i < bundleCount; ++i) {
            const QString contents = m_folder.filePath(QStringLiteral("Program %1.app/Contents").arg(i));
            QDir().mkpath(contents);
            QFile file(QString(contents + QLatin1StringView("/Info.plist")));
            if (!file.open(QFile::WriteOnly) || file.write(informationOf(i, otherEntries)) < 0)
                qFatal("The bundles can't be made");
        }
    }
    FileUrl root() const { return FileUrl::fromPath(m_folder.path()); }

private:
    QTemporaryDir m_folder;
};

// The argument is the number of entries besides those that the program reads, each with an array and
// a dictionary in it: 1, 2 and 5 KiB for each bundle.
void scanBundles(benchmark::State& state) {
    const Bundles bundles(static_cast<int>(state.range(0)));
    const PlistBundleReader reader;
    const BundleSource source({bundles.root()}, reader);
    for (auto _ : state) {
        const ApplicationListing listing = source.list();
        if (listing.applications.size() != bundleCount || listing.applications[0].name.isEmpty())
            state.SkipWithError("not all bundles were found");
    }
}
BENCHMARK(scanBundles)->Arg(0)->Arg(10)->Arg(40)->Unit(benchmark::kMillisecond);

void readTheSameFiles(benchmark::State& state) {
    const Bundles bundles(static_cast<int>(state.range(0)));
    QList<QByteArray> paths;
    for (int i = 0; i < bundleCount; ++i)
        paths.append(bundles.root().nativePath() + "/Program " + QByteArray::number(i) + ".app/Contents/Info.plist");
    for (auto _ : state) {
        for (const QByteArray& path : paths)
            benchmark::DoNotOptimize(readRegularFile(path, std::size_t{1024} * 1024));
    }
}
BENCHMARK(readTheSameFiles)->Arg(0)->Arg(10)->Arg(40)->Unit(benchmark::kMillisecond);

void writePreferences(benchmark::State& state) {
    const QTemporaryDir folder;
    PlistPreferencesFile file(FileUrl::fromPath(folder.filePath(QStringLiteral("preferences.plist"))));
    QStringList paths;
    for (int i = 0; i < 1000; ++i)
        paths.append(QStringLiteral("/Applications/Some Folder/Program %1.app").arg(i));
    for (auto _ : state) {
        if (!file.write({{QStringLiteral("hiddenAppPaths"), paths}}))
            state.SkipWithError("the file can't be written");
    }
}
// Waits for the disk more than it computes.
BENCHMARK(writePreferences)->Unit(benchmark::kMillisecond)->UseRealTime();

void watchTheContentsOfBundles(benchmark::State& state) {
    const Bundles bundles(0);
    const PlistBundleReader reader;
    const QList<FileUrl> folders = BundleSource({bundles.root()}, reader).list().folders;
    InotifyFolderWatcher watcher;
    QList<FileUrl> changed = folders;
    changed.append(FileUrl::fromPath(QStringLiteral("/missing")));
    bool odd = false;
    for (auto _ : state)
        watcher.setFolders((odd = !odd) ? folders : changed);
}
BENCHMARK(watchTheContentsOfBundles)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
