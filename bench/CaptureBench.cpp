// What it costs to look at the desktop as the wall opens, on an X server of its own: the picture of a screen, and
// whether the user wants less movement.

#include "platform/linux/desktop/DesktopMotionPreference.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11RootReader.h"
#include "support/DesktopSession.h"
#include "support/WholePicture.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

using namespace zelmo;
using namespace std::chrono_literals;

namespace {

constexpr QSize screenSize(1920, 1080);

std::unique_ptr<test::DesktopSession> startSession(QSize size, test::SharedMemory sharedMemory) {
    return test::DesktopSession::start({.screen = size, .sharedMemory = sharedMemory, .windowManager = {}});
}

QImage wholeScreen(const X11Connection& connection) {
    const X11RootReader reader(connection.get(), connection.root(), 10s);
    return test::wholePicture(
        [&](const DesktopCapture::TakeRows& take) { return reader.read(reader.area().value_or(QRect()), take); });
}

void pictureOfAScreen(benchmark::State& state, test::SharedMemory sharedMemory) {
    const QSize size = screenSize * static_cast<int>(state.range(0));
    const auto session = startSession(size, sharedMemory);
    const auto connection = session ? X11Connection::open(session->displayName().toLatin1()) : nullptr;
    if (!connection || wholeScreen(*connection).size() != size) {
        state.SkipWithError("there is no picture");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(wholeScreen(*connection));
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

// Of a program that has asked the server for nothing yet.
void firstPictureOfAScreen(benchmark::State& state) {
    const auto session = startSession(screenSize, test::SharedMemory::offered);
    for (auto _ : state) {
        const auto connection = session ? X11Connection::open(session->displayName().toLatin1()) : nullptr;
        if (!connection) {
            state.SkipWithError("no X server starts");
            return;
        }
        const auto start = std::chrono::steady_clock::now();
        const QImage picture = wholeScreen(*connection);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
}
BENCHMARK(firstPictureOfAScreen)->Unit(benchmark::kMillisecond)->UseManualTime();

// Where nobody has said anything of it, so that every place is looked into.
void motionPreference(benchmark::State& state) {
    const auto session = startSession(screenSize, test::SharedMemory::offered);
    const auto connection = session ? X11Connection::open(session->displayName().toLatin1()) : nullptr;
    if (!connection) {
        state.SkipWithError("no X server starts");
        return;
    }
    const DesktopMotionPreference preference(connection.get(), {"/etc/xdg"});
    for (auto _ : state)
        benchmark::DoNotOptimize(preference.reducesMotion());
}
BENCHMARK(motionPreference)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
