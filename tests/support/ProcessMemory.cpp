#include "support/ProcessMemory.h"

#include <QFile>

namespace zelmo::test {

namespace {

// From a line such as "name: 12 kB".
double mebibytes(const QByteArray& text, const char* name) {
    for (const QByteArray& line : text.split('\n')) {
        if (line.startsWith(name))
            return line.mid(line.indexOf(':') + 1).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

} // namespace

ProcessMemory ProcessMemory::of(qint64 process) {
    QFile file(QStringLiteral("/proc/%1/smaps_rollup").arg(process));
    const QByteArray text = file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    return {.proportional = mebibytes(text, "Pss:"), .own = mebibytes(text, "Private_Dirty:")};
}

} // namespace zelmo::test
