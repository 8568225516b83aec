// Measures what a person sees, from outside the program: real key events go in through XTEST, and the
// DAMAGE extension tells what was painted when. Prints a Markdown table of medians (minimum to maximum).

#include "bench/DamageClock.h"
#include "bench/Figure.h"
#include "bench/Resident.h"
#include "support/DesktopSession.h"
#include "support/ProcessMemory.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>
#include <QTextStream>

#include <cstdio>

using namespace zelmo;
using namespace zelmo::bench;
using namespace std::chrono_literals;

namespace {

constexpr int runCount = 7;
constexpr int showsPerRun = 3;
constexpr QSize screenSize{1920, 1080};

struct Launcher {
    QString name;
    QString program;
    QStringList arguments{};
    bool isResident = true; // or ends when it is hidden
};

struct Figures {
    Figure firstFrame;
    Figure allIcons;
    Figure key;
    Figure keyBack;
    Figure hotKey;
    Figure memory;
};

void measureOnce(test::DesktopSession& session, const Launcher& launcher, Figures& figures) {
    DamageClock damage(session.displayName());
    damage.clear();
    const Clock::time_point start = Clock::now();
    QProcess& process = session.startProgram(launcher.program, launcher.arguments);
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
    figures.memory.add(test::ProcessMemory::of(process.processId()).proportional);
    for (int show = 0; launcher.isResident && show < showsPerRun; ++show) {
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
    // The desktop is painted again.
    damage.collect(150ms, 500ms);
}

// Beside what others do on the same machine in the same minute.
QList<Launcher> launchersFrom(const QStringList& arguments) {
    QList<Launcher> launchers{{.name = QStringLiteral("Zelmo"), .program = arguments[1]}};
    const qsizetype theme = arguments.indexOf(QStringLiteral("--peer-theme")) + 1;
    const QString peer = QStringLiteral("rofi");
    if (theme == 0 || theme == arguments.size())
        return launchers;
    if (QStandardPaths::findExecutable(peer).isEmpty())
        std::fprintf(stderr, "rofi is not installed; there is nothing to compare with\n");
    else
        launchers.append(
            {.name = peer,
             .program = peer,
             .arguments = {QStringLiteral("-show"), QStringLiteral("drun"), QStringLiteral("-theme"), arguments[theme]},
             .isResident = false});
    return launchers;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (argc < 2) {
        std::fprintf(stderr, "usage: stopwatch PROGRAM [NUMBER-OF-APPLICATIONS]... [--peer-theme FILE]\n");
        return 2;
    }
    const QList<Launcher> launchers = launchersFrom(arguments);
    QList<int> counts;
    for (int i = 2; i < argc && arguments[i] != QLatin1String("--peer-theme"); ++i)
        counts.append(arguments[i].toInt());
    if (counts.isEmpty())
        counts = {200, 1000, 10000};
    QTextStream out(stdout);
    out << "| launcher | applications | start to first frame, ms | start to all icons, ms | key to narrowed wall, ms "
           "| key to widened wall, ms | hot key to painted wall, ms | proportional memory, MiB "
           "|\n|---|---|---|---|---|---|---|---|\n";
    for (const int count : std::as_const(counts)) {
        const auto session = test::DesktopSession::start({.screen = screenSize});
        if (!session)
            return 1;
        installApplications(*session, count);
        // The peer tells kinds of pictures by it, and the session hides the system's.
        QFile::link(QStringLiteral("/usr/share/mime"), session->home() + u"/.local/share/mime");
        for (const Launcher& launcher : launchers) {
            Figures figures;
            Figures warmUp;
            measureOnce(*session, launcher, warmUp);
            for (int run = 0; run < runCount; ++run)
                measureOnce(*session, launcher, figures);
            out << "| " << launcher.name << " | " << count << " | " << figures.firstFrame.text() << " | "
                << figures.allIcons.text() << " | " << figures.key.text(1) << " | " << figures.keyBack.text(1) << " | "
                << figures.hotKey.text(1) << " | " << figures.memory.text() << " |\n";
            out.flush();
        }
    }
    return 0;
}
