// Measures what the program costs while it waits to be called: a hidden wall's wake-ups and processor time, the memory
// after many shows, and how long a second start takes. Prints a Markdown table.

#include "bench/DamageClock.h"
#include "bench/Figure.h"
#include "bench/Resident.h"
#include "support/DesktopSession.h"
#include "support/ProcessMemory.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QThread>

#include <cstdio>

using namespace zelmo;
using namespace zelmo::bench;
using namespace std::chrono_literals;

namespace {

constexpr int applicationCount = 200;
constexpr int defaultShows = 100;
constexpr int fewShows = 20; // by then all is set up that is used again
constexpr int secondStarts = 11;
constexpr unsigned long secondsUntilThreadsEnd = 35;

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    if (argc != 3 && argc != 4) {
        std::fprintf(stderr, "usage: residentstopwatch PROGRAM SECONDS-TO-BE-IDLE [SHOWS]\n");
        return 2;
    }
    const QString program = QString::fromLocal8Bit(argv[1]);
    const int seconds = QByteArray(argv[2]).toInt();
    const int shows = argc > 3 ? QByteArray(argv[3]).toInt() : defaultShows;
    const auto session = test::DesktopSession::start({.screen = {1920, 1080}});
    if (!session || seconds <= 0)
        return 1;
    installApplications(*session, applicationCount);
    DamageClock damage(session->displayName());
    const QProcess& process = session->startProgram(program);
    const auto isShown = [&] { return session->display().viewableWindow(QStringLiteral("Zelmo")).has_value(); };
    const auto memory = [&]() -> QString {
        const auto used = test::ProcessMemory::of(process.processId());
        return QString::number(used.proportional, 'f', 1) + u" | " + QString::number(used.own, 'f', 1);
    };
    const auto rest = [&] { damage.collect(300ms, 5s); };
    if (!test::DesktopSession::waitFor(isShown))
        return 1;
    rest();
    QTextStream out(stdout);
    out << "| shows | proportional memory, MiB | memory of its own, MiB |\n|---|---|---|\n";
    const auto printMemory = [&](int count) {
        rest();
        out << "| " << count << " | " << memory() << " |\n";
        out.flush();
    };
    printMemory(1);
    for (int i = 1; i <= shows; ++i) {
        if (!hideWall(*session))
            return 1;
        pressShortcut(session->display());
        if (!test::DesktopSession::waitFor(isShown))
            return 1;
        if (i == std::min(fewShows, shows) || i % std::max(shows / 10, fewShows) == 0)
            printMemory(i + 1);
    }

    Figure secondStart;
    for (int i = 0; i < secondStarts; ++i) {
        QProcess second;
        second.setProcessEnvironment(session->environment());
        const Clock::time_point start = Clock::now();
        second.start(program, QStringList());
        if (!second.waitForFinished())
            return 1;
        secondStart.add(milliseconds(Clock::now() - start));
    }
    rest();
    if (!hideWall(*session))
        return 1;
    out << "| hidden | " << memory() << " |\n";
    // What threads have done is known as long as they live, and those that have no more work end by then.
    QThread::sleep(secondsUntilThreadsEnd);
    const Effort before = effortOf(process.processId());
    QThread::sleep(static_cast<unsigned long>(seconds));
    const Effort after = effortOf(process.processId());
    const double minutes = seconds / 60.0;

    out << "\n| resident, " << applicationCount << " applications | |\n|---|---|\n"
        << "| second start, from start to end, ms | " << secondStart.text(1) << " |\n"
        << "| idle for " << seconds << " s: wake-ups a minute | "
        << QString::number((after.pauses - before.pauses) / minutes, 'f', 1) << " |\n"
        << "| idle for " << seconds << " s: processor time a minute, ms | "
        << QString::number((after.processorMilliseconds - before.processorMilliseconds) / minutes, 'f', 2) << " |\n";
    return 0;
}
