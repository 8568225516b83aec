#include "soak/ResourceUse.h"

#include "support/DesktopSession.h"
#include "support/ProcFile.h"
#include "support/ProcessMemory.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QTest>
#include <QTextStream>

namespace zelmo::test {

namespace {

qsizetype entryCount(qint64 process, const char* folder) {
    return QDir(QStringLiteral("/proc/%1/%2").arg(process).arg(QLatin1StringView(folder)))
        .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot)
        .size();
}

qint64 millisecondsNow() {
    return QDeadlineTimer::current().deadline();
}

} // namespace

ResourceUse ResourceUse::of(qint64 process) {
    ResourceUse use{.memory = ProcessMemory::of(process).own,
                    .descriptors = entryCount(process, "fd"),
                    .threads = entryCount(process, "task")};
    const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
    for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        // Its first number is of nanoseconds.
        const QByteArray spent = procFile(process, QStringLiteral("task/%1/schedstat").arg(thread));
        use.processorMilliseconds += spent.split(' ').first().toDouble() / 1e6;
    }
    return use;
}

FlatUse::FlatUse(qint64 process)
    : m_process(process), m_begin(ResourceUse::of(process)), m_startedAt(millisecondsNow()) {}

void FlatUse::noteMiddle() {
    m_middleMemory = ResourceUse::of(m_process).memory;
}

QString FlatUse::growthAfter(const char* work, int times) {
    const double seconds = static_cast<double>(millisecondsNow() - m_startedAt) / 1000;
    ResourceUse end;
    const auto isFlat = [&] {
        end = ResourceUse::of(m_process);
        return end.memory > 0 && end.memory - m_begin.memory < memoryMargin && end.descriptors <= m_begin.descriptors &&
               end.threads <= m_begin.threads + threadMargin;
    };
    // A scan that is still going on has files open.
    const bool stayedFlat = DesktopSession::waitFor(isFlat);
    QTextStream(stdout) << "| " << work << " | " << times << qSetRealNumberPrecision(1) << Qt::fixed << " | "
                        << m_begin.memory << " | " << m_middleMemory << " | " << end.memory << " | "
                        << m_begin.descriptors << " to " << end.descriptors << " | " << m_begin.threads << " to "
                        << end.threads << " | " << qSetRealNumberPrecision(0) << seconds << " |\n";
    if (stayedFlat)
        return {};
    return QStringLiteral("memory from %1 to %2 MiB, descriptors from %3 to %4, threads from %5 to %6")
        .arg(m_begin.memory)
        .arg(end.memory)
        .arg(m_begin.descriptors)
        .arg(end.descriptors)
        .arg(m_begin.threads)
        .arg(end.threads);
}

void FlatRounds::note() {
    ++m_done;
    if (m_done == 1)
        m_use.emplace(m_process);
    if (m_done == m_count / 2)
        m_use->noteMiddle();
}

QString FlatRounds::growth() {
    if (m_count <= 2)
        return {};
    const char* row = QTest::currentDataTag();
    QByteArray work = QTest::currentTestFunction();
    if (row)
        work += QByteArray(", ") + row;
    return m_use->growthAfter(work.constData(), m_count - 1);
}

} // namespace zelmo::test
