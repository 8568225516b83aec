// Measures what a person sees, from outside the program: real key events go in through XTEST, and the
// DAMAGE extension tells what was painted when. Prints a Markdown table of medians (minimum to maximum).

#include "bench/DamageClock.h"
#include "support/DesktopSession.h"

#include <QCoreApplication>
#include <QFile>
#include <QPainter>
#include <QTextStream>

#include <cstdio>

using namespace zelmo;
using namespace zelmo::bench;
using namespace std::chrono_literals;

namespace {

constexpr int runCount = 7;
constexpr QSize screenSize{1920, 1080};

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

// Median, minimum and maximum of one figure.
class Figure {
public:
    void add(double value) { m_values.push_back(value); }
    QString text(int decimals = 0) {
        if (m_values.empty())
            return QStringLiteral("-");
        std::sort(m_values.begin(), m_values.end());
        const auto number = [&](double value) { return QString::number(value, 'f', decimals); };
        return QStringLiteral("%1 (%2-%3)")
            .arg(number(m_values[m_values.size() / 2]), number(m_values.front()), number(m_values.back()));
    }

private:
    std::vector<double> m_values;
};

void installApplications(const test::DesktopSession& session, int count) {
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        session.writeFile(QStringLiteral(".local/share/applications/app%1.desktop").arg(i),
                          "[Desktop Entry]\nType=Application\nName=Application " + number +
                              "\nComment=One of many\nExec=true %U\nCategories=Utility;\nIcon=app" + number + "\n");
        QImage icon(128, 128, QImage::Format_ARGB32);
        icon.fill(Qt::transparent);
        QPainter painter(&icon);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor::fromHsv(i * 37 % 360, 160, 220));
        painter.drawRoundedRect(4, 4, 120, 120, 28, 28);
        painter.setPen(Qt::white);
        for (int line = 0; line < 8; ++line)
            painter.drawLine(20, 24 + line * 11, 40 + (i * 7 + line * 13) % 70, 24 + line * 11);
        painter.end();
        const QString path = QStringLiteral(".local/share/icons/hicolor/128x128/apps/app%1.png").arg(i);
        session.writeFile(path, {});
        icon.save(session.home() + u'/' + path);
    }
    session.writeFile(QStringLiteral(".local/share/icons/hicolor/index.theme"),
                      "[Icon Theme]\nName=Hicolor\nDirectories=128x128/apps\n[128x128/apps]\nSize=128\nType=Fixed\n");
}

double proportionalMemory(qint64 process) {
    QFile file(QStringLiteral("/proc/%1/smaps_rollup").arg(process));
    if (!file.open(QFile::ReadOnly))
        return 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("Pss:"))
            return line.mid(4).trimmed().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

struct Figures {
    Figure firstFrame;
    Figure allIcons;
    Figure key;
    Figure keyBack;
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
           "| key to widened wall, ms | proportional memory, MiB |\n|---|---|---|---|---|---|\n";
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
            << figures.key.text(1) << " | " << figures.keyBack.text(1) << " | " << figures.memory.text() << " |\n";
        out.flush();
    }
    return 0;
}
