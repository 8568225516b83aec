// Moving an application of 10,000 files to the Trash: by renaming on the home folder's file system, by copying from
// another one.

#include "TemporaryFolder.h"
#include "platform/linux/trash/XdgTrash.h"

#include <QCoreApplication>
#include <QDir>
#include <benchmark/benchmark.h>

using namespace zelmo;

namespace {

constexpr int filesInItem = 10'000;
constexpr int foldersInItem = 100;

void moveFrom(benchmark::State& state, const QString& place) {
    const TemporaryFolder folder(place);
    XdgTrash trash;
    const QByteArray contents(1000, 'x');
    for (auto _ : state) {
        state.PauseTiming();
        for (int i = 0; i < filesInItem; ++i)
            folder.writeFile("Big.app/" + QByteArray::number(i % foldersInItem) + "/" + QByteArray::number(i),
                             contents);
        state.ResumeTiming();
        if (trash.moveToTrash(folder.url("Big.app")) != TrashResult::moved)
            state.SkipWithError("refused");
    }
}

void trashFromTheHomeFileSystem(benchmark::State& state) {
    moveFrom(state, QDir::tempPath());
}

// Memory, so that the time is that of writing the copy to the home folder's disk.
void trashFromAnotherFileSystem(benchmark::State& state) {
    moveFrom(state, QStringLiteral("/dev/shm"));
}

} // namespace

BENCHMARK(trashFromTheHomeFileSystem)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(trashFromAnotherFileSystem)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

int main(int argc, char* argv[]) {
    // Before anything asks where the Trash is: not the one of whoever measures.
    const TemporaryFolder home;
    qputenv("HOME", home.path());
    qputenv("XDG_DATA_HOME", home.path("data"));
    benchmark::Initialize(&argc, argv);
    // What is moved elsewhere is waited for in its event loop.
    const QCoreApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
