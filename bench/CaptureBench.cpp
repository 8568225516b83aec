// What it costs to take the picture of a screen, on an X server of its own.

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11RootReader.h"
#include "support/DesktopSession.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

using namespace zelmo;
using namespace std::chrono_literals;

namespace {

void pictureOfAScreen(benchmark::State& state, test::SharedMemory sharedMemory) {
    const QSize size = QSize(1920, 1080) * static_cast<int>(state.range(0));
    const auto session =
        test::DesktopSession::start({.screen = size, .sharedMemory = sharedMemory, .windowManager = {}});
    const auto connection = session ? X11Connection::open(session->displayName().toLatin1()) : nullptr;
    if (!connection) {
        state.SkipWithError("no X server starts");
        return;
    }
    for (auto _ : state) {
        const X11RootReader reader(connection->get(), connection->root(), 10s);
        const QImage picture = reader.picture(reader.area().value_or(QRect()));
        if (picture.size() != size)
            state.SkipWithError("there is no picture");
    }
}
BENCHMARK_CAPTURE(pictureOfAScreen, throughSharedMemory, test::SharedMemory::offered)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(pictureOfAScreen, throughTheConnection, test::SharedMemory::missing)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
