#include "support/ProcFile.h"

#include <QFile>

namespace zelmo::test {

QByteArray procFile(qint64 process, const QString& name) {
    QFile file(QStringLiteral("/proc/%1/%2").arg(process).arg(name));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

double procNumber(const QByteArray& text, const char* name) {
    for (const QByteArray& line : text.split('\n')) {
        if (line.startsWith(name))
            return line.mid(line.indexOf(':') + 1).simplified().split(' ').first().toDouble();
    }
    return 0;
}

} // namespace zelmo::test
