// Measures what a person sees, from outside the program: real key events go in through XTEST, and the
// DAMAGE extension tells what was painted when. Prints a Markdown table of medians (minimum to maximum).

#include "bench/DamageClock.h"
#include "bench/Figure.h"
#include "bench/Resident.h"
#include "support/DesktopSession.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

using namespace zelmo;
using namespace zelmo::bench;
using namespace std::chrono_literals;

namespace {

constexpr int runCount = 7;
constexpr int showsPerRun = 3;
constexpr QSize screenSize{1920, 1080};

struct Figures {
    Figure firstFrame;
    Figure allIcons;
    Figure key;
    Figure keyBack;
    Figure hotKey;
    Figure memory;
};

void measureOnce(test::DesktopSession& session, const QString& program, Figures& figures) {
    DamageClock damage(session.displayName());
    damage.clear();
    const Clock::time_point start = Clock::now();
    QProcess& process = session.startProgram(program);
    const auto paintings = damage.collect(600ms, 20s);
    const auto first = std::find_if(paintings.begin(), paintings.end(), [](const DamageClock::Painting& painting) {
        return painting.area.width() * painting.area.height() > screenSize.width() * screenSize.height() / 2;
    });
    if (first == paintings.end()) {
        std::fprintf(stderr, "nothing was painted\n");
        return;
    }
    figures.firstFrame.add(milliseconds(first->at - start));
    figures.allIcons.add(milliseconds(paintings.back().at - start));

    const auto timeKey = [&](xcb_keysym_t key, Figure& figure) {
        damage.clear();
        const Clock::time_point pressed = Clock::now();
        session.display().typeKey(key);
        const auto changes = damage.collect(150ms, 2s);
        if (!changes.empty())
            figure.add(milliseconds(changes.back().at - pressed));
    };
    // Once unmeasured, so that the glyphs are there.
    Figure warmUp;
    timeKey('9', warmUp);
    timeKey(test::backspaceKey, warmUp);
    timeKey('7', figures.key);
    timeKey(test::backspaceKey, figures.keyBack);
    figures.memory.add(proportionalMemory(process.processId()));
    for (int show = 0; show < showsPerRun; ++show) {
        if (!hideWall(session))
            return;
        damage.collect(150ms, 500ms);
        damage.clear();
        const Clock::time_point pressed = Clock::now();
        pressShortcut(session.display());
        const auto changes = damage.collect(150ms, 2s);
        if (!changes.empty())
            figures.hotKey.add(milliseconds(changes.back().at - pressed));
    }
    process.terminate();
    process.waitForFinished();
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: stopwatch PROGRAM [NUMBER-OF-APPLICATIONS]...\n");
        return 2;
    }
    QList<int> counts;
    for (int i = 2; i < argc; ++i)
        counts.append(QByteArray(argv[i]).toInt());
    if (counts.isEmpty())
        counts = {200, 1000, 10000};
    QTextStream out(stdout);
    out << "| applications | start to first frame, ms | start to all icons, ms | key to narrowed wall, ms "
           "| key to widened wall, ms | hot key to painted wall, ms | proportional memory, MiB "
           "|\n|---|---|---|---|---|---|---|\n";
    for (const int count : std::as_const(counts)) {
        const auto session = test::DesktopSession::start({.screen = screenSize});
        if (!session)
            return 1;
        installApplications(*session, count);
        Figures figures;
        Figures warmUp;
        measureOnce(*session, QString::fromLocal8Bit(argv[1]), warmUp);
        for (int run = 0; run < runCount; ++run)
            measureOnce(*session, QString::fromLocal8Bit(argv[1]), figures);
        out << "| " << count << " | " << figures.firstFrame.text() << " | " << figures.allIcons.text() << " | "
            << figures.key.text(1) << " | " << figures.keyBack.text(1) << " | " << figures.hotKey.text(1) << " | "
            << figures.memory.text() << " |\n";
        out.flush();
    }
    return 0;
}
