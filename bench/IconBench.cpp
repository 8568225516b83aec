#include "platform/linux/icons/IconFileDecoder.h"
#include "platform/linux/icons/IconThemeIndex.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QTemporaryDir>

using namespace zelmo;

namespace {

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("can't write %s", qPrintable(path));
}

// Five sizes of ten thousand icons each.
const QTemporaryDir& largeTheme() {
    static const QTemporaryDir folder;
    static const bool isMade = [] {
        QByteArray description = "[Icon Theme]\nDirectories=16,24,32,48,96\n";
        for (const char* size : {"16", "24", "32", "48", "96"}) {
            description += QByteArray("[") + size + "]\nSize=" + size + "\n";
            const QString sizeFolder = folder.filePath(QStringLiteral("large/") + QLatin1StringView(size));
            QDir().mkpath(sizeFolder);
            for (int i = 0; i < 10'000; ++i)
                write(sizeFolder +
                          QStringLiteral("/org.example.Application%1.%2.png").arg(i).arg(QLatin1StringView(size)),
                      {});
        }
        write(folder.filePath(QStringLiteral("large/index.theme")), description);
        return true;
    }();
    benchmark::DoNotOptimize(isMade);
    return folder;
}

void report(benchmark::State& state, const IconThemeIndex& index) {
    const IconThemeIndex::Extent extent = index.extent();
    state.counters["names"] = static_cast<double>(extent.names);
    state.counters["files"] = static_cast<double>(extent.files);
    state.counters["KiB"] = static_cast<double>(extent.bytes) / 1024;
}

void buildIndex(benchmark::State& state, const IconFolders& folders, const QByteArray& theme) {
    for ([[maybe_unused]] auto _ : state) {
        IconThemeIndex index(folders, theme);
        benchmark::DoNotOptimize(index.files("no-such-icon", 104, 1, 1));
        state.PauseTiming();
        report(state, index);
        state.ResumeTiming();
    }
}

void indexOfInstalledTheme(benchmark::State& state, const QByteArray& theme) {
    if (!QDir(QStringLiteral("/usr/share/icons/") + QFile::decodeName(theme)).exists()) {
        state.SkipWithError("the theme is not installed");
        return;
    }
    buildIndex(state, {{"/usr/share/icons"}, {"/usr/share/pixmaps"}}, theme);
}
BENCHMARK_CAPTURE(indexOfInstalledTheme, adwaita, QByteArray("Adwaita"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(indexOfInstalledTheme, papirus, QByteArray("Papirus"))->Unit(benchmark::kMillisecond);

void indexOfFiftyThousandNames(benchmark::State& state) {
    buildIndex(state, {{QFile::encodeName(largeTheme().path())}, {}}, "large");
}
BENCHMARK(indexOfFiftyThousandNames)->Unit(benchmark::kMillisecond);

void lookUp(benchmark::State& state) {
    IconThemeIndex index({{QFile::encodeName(largeTheme().path())}, {}}, QByteArray("large"));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(index.files("org.example.Application777.48", 104, 1, 1));
}
BENCHMARK(lookUp);

void lookUpOfMissingName(benchmark::State& state) {
    IconThemeIndex index({{QFile::encodeName(largeTheme().path())}, {}}, QByteArray("large"));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(index.files("org.example.Nothing", 104, 1, 1));
}
BENCHMARK(lookUpOfMissingName);

void decodePng(benchmark::State& state) {
    QImage image(128, 128, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QGradient(QGradient::SunnyMorning));
    painter.drawEllipse(8, 8, 112, 112);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(IconFileDecoder::decode(bytes, 104));
}
BENCHMARK(decodePng)->Unit(benchmark::kMicrosecond);

void decodeSvg(benchmark::State& state) {
    QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='48' height='48'>"
                     "<linearGradient id='g'><stop offset='0' stop-color='#06f'/><stop offset='1' stop-color='#0cf'/>"
                     "</linearGradient><rect x='4' y='4' width='40' height='40' rx='8' fill='url(#g)'/>";
    for (int i = 0; i < 30; ++i)
        svg += "<path opacity='.6' fill='#fff' d='M" + QByteArray::number(6 + i) +
               " 12c4 3 8-3 12 0s-4 20-8 16-9-12-4-16z'/>";
    svg += "</svg>";
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(IconFileDecoder::decode(svg, 208));
}
BENCHMARK(decodeSvg)->Unit(benchmark::kMicrosecond);

void decodeSvgWithEffects(benchmark::State& state) {
    QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='48' height='48'><filter id='f'><feColorMatrix "
                     "values='0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 0 0 0 1 0'/></filter>";
    for (const char* name : {"a", "b", "c"})
        svg += QByteArray("<mask id='") + name +
               "'><g filter='url(#f)'><rect fill-opacity='.5' width='48' height='48'/></g></mask><g mask='url(#" +
               name + ")'><circle cx='24' cy='24' r='20' fill='#06f'/></g>";
    svg += "</svg>";
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(IconFileDecoder::decode(svg, 208));
}
BENCHMARK(decodeSvgWithEffects)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
