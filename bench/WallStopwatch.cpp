// Measures the wall while it is up, from outside: in each layout, over a gradient and over the blurred desktop, how
// long it takes to come, to follow a key, to scroll by a page from end to end and step by step, and to go. Prints
// Markdown.

#include "bench/DamageClock.h"
#include "bench/Figure.h"
#include "bench/Resident.h"
#include "support/DesktopSession.h"

#include <QCoreApplication>
#include <QTextStream>

#include <array>
#include <cstdio>
#include <utility>

using namespace zelmo;
using namespace zelmo::bench;
using namespace std::chrono_literals;

namespace {

constexpr int repetitions = 5;
constexpr int wheelSteps = 60;
constexpr int mostPages = 500;
constexpr QSize screenSize{1920, 1080};
constexpr std::array layouts{"grid", "list", "minimal", "tiles"};
constexpr std::array backgrounds{"berrySky", "desktopBlur"};

// How many frames took how long.
class Histogram {
public:
    void add(double duration) {
        const auto bucket = std::find_if(limits.begin(), limits.end(), [&](double limit) { return duration <= limit; });
        ++m_counts[static_cast<std::size_t>(bucket - limits.begin())];
    }
    QString text() const {
        QStringList parts;
        for (const int count : m_counts)
            parts.append(QString::number(count));
        return parts.join(u" / ");
    }

    static constexpr std::array limits{4.0, 8.0, 12.0, 16.0, 33.0}; // ms; the last count is of what took longer

private:
    std::array<int, limits.size() + 1> m_counts{};
};

struct Figures {
    Figure show;
    Figure key;
    Figure page;
    Figure wheel;
    Figure hideFrame;
    Histogram pageFrames;
    Histogram wheelFrames;
};

// The server paints a frame in parts. What comes within 3 ms of the first counts as one, which is there with the last.
std::vector<Clock::time_point> framesOf(const std::vector<DamageClock::Painting>& paintings) {
    std::vector<Clock::time_point> frames;
    std::optional<Clock::time_point> begun;
    for (const DamageClock::Painting& painting : paintings) {
        if (begun && painting.at - *begun < 3ms) {
            frames.back() = painting.at;
        } else {
            begun = painting.at;
            frames.push_back(painting.at);
        }
    }
    return frames;
}

class Measurement {
public:
    Measurement(const test::DesktopSession& session) : m_session(session), m_damage(session.displayName()) {}

    bool run(Figures& figures) {
        if (m_damage.collect(600ms, 20s).empty())
            return false;
        for (int i = 0; i < repetitions; ++i) {
            hide(figures);
            time([&] { pressShortcut(m_session.display()); }, 150ms, &figures.show);
        }
        for (int i = 0; i <= repetitions; ++i) {
            // The first one fetches the glyphs.
            time([&] { m_session.display().typeKey('7'); }, 100ms, i > 0 ? &figures.key : nullptr);
            time([&] { m_session.display().typeKey(test::backspaceKey); }, 100ms, nullptr);
        }
        scrollByWheel(figures);
        scrollByPages(figures);
        return true;
    }

private:
    template <typename Action>
    bool time(Action action, std::chrono::milliseconds quiet, Figure* figure, Histogram* frames = nullptr) {
        m_damage.clear();
        const Clock::time_point begun = Clock::now();
        action();
        const auto paintings = m_damage.collect(quiet, 400ms);
        if (paintings.empty())
            return false;
        const double duration = milliseconds(paintings.back().at - begun);
        if (figure)
            figure->add(duration);
        if (frames) {
            Clock::time_point last = begun;
            for (const Clock::time_point frame : framesOf(paintings))
                frames->add(milliseconds(frame - std::exchange(last, frame)));
        }
        return true;
    }
    void hide(Figures& figures) {
        m_damage.clear();
        m_session.display().typeKey(test::escapeKey);
        const auto frames = framesOf(m_damage.collect(100ms, 400ms));
        for (std::size_t i = 1; i < frames.size(); ++i)
            figures.hideFrame.add(milliseconds(frames[i] - frames[i - 1]));
        // A wall that is shown before goes all the same.
        waitUntilHidden(m_session);
    }
    // One step after another without waiting, as a wheel that is spun.
    void scrollByWheel(Figures& figures) {
        m_session.display().movePointer({screenSize.width() / 2, screenSize.height() * 2 / 3});
        m_damage.collect(100ms, 400ms);
        m_damage.clear();
        std::vector<DamageClock::Painting> paintings;
        for (int i = 0; i < wheelSteps; ++i) {
            m_session.display().wheelDown();
            const auto some = m_damage.collect(1ms, 16ms);
            paintings.insert(paintings.end(), some.begin(), some.end());
        }
        const auto rest = m_damage.collect(100ms, 2s);
        paintings.insert(paintings.end(), rest.begin(), rest.end());
        const auto frames = framesOf(paintings);
        for (std::size_t i = 1; i < frames.size(); ++i) {
            const double duration = milliseconds(frames[i] - frames[i - 1]);
            figures.wheel.add(duration);
            figures.wheelFrames.add(duration);
        }
    }
    // With the focus on the cards, to the last one.
    void scrollByPages(Figures& figures) {
        m_session.display().typeKey(test::downKey);
        m_session.display().typeKey(test::downKey);
        m_damage.collect(100ms, 400ms);
        int pages = 0;
        while (pages < mostPages &&
               time([&] { m_session.display().typeKey(test::pageDownKey); }, 20ms, &figures.page, &figures.pageFrames))
            ++pages;
    }

    const test::DesktopSession& m_session;
    DamageClock m_damage;
};

QByteArray preferences(const char* layout, const char* background) {
    return QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>"
                      "<key>launcherInterfaceStyle</key><string>") +
           layout + "</string><key>launcherBackgroundStyle</key><string>" + background + "</string></dict></plist>";
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: wallstopwatch PROGRAM [NUMBER-OF-APPLICATIONS | LAYOUT | BACKGROUND]...\n");
        return 2;
    }
    QList<int> counts;
    QByteArrayList looks;
    for (int i = 2; i < argc; ++i) {
        const QByteArray argument = argv[i];
        if (const int count = argument.toInt())
            counts.append(count);
        else
            looks.append(argument);
    }
    const auto isWanted = [&](const auto& all, const char* one) {
        return looks.contains(one) || std::ranges::none_of(all, [&](const char* any) { return looks.contains(any); });
    };
    if (counts.isEmpty())
        counts = {200, 10000};
    QTextStream out(stdout);
    out << "| applications | layout | background | hot key to painted wall, ms | key to narrowed wall, ms "
           "| a page further, with all icons, ms | its frames within 4 / 8 / 12 / 16 / 33 ms / later | wheel, between "
           "frames, ms "
           "| wheel frames within 4 / 8 / 12 / 16 / 33 ms / later | hiding, between frames, ms "
           "|\n|--:|---|---|---|---|---|---|---|---|---|\n";
    for (const int count : std::as_const(counts)) {
        const auto session = test::DesktopSession::start({.screen = screenSize});
        if (!session)
            return 1;
        installApplications(*session, count);
        for (const char* layout : layouts) {
            for (const char* background : backgrounds) {
                if (!isWanted(layouts, layout) || !isWanted(backgrounds, background))
                    continue;
                session->writeFile(QStringLiteral(".config/zelmo/preferences.plist"), preferences(layout, background));
                QProcess& process = session->startProgram(QString::fromLocal8Bit(argv[1]));
                Figures figures;
                if (!Measurement(*session).run(figures))
                    return 1;
                process.terminate();
                process.waitForFinished();
                out << "| " << count << " | " << layout << " | " << background << " | " << figures.show.text(1) << " | "
                    << figures.key.text(1) << " | " << figures.page.text(1) << " | " << figures.pageFrames.text()
                    << " | " << figures.wheel.text(1) << " | " << figures.wheelFrames.text() << " | "
                    << figures.hideFrame.text(1) << " |\n";
                out.flush();
            }
        }
    }
    return 0;
}
