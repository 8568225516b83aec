#pragma once

#include <QByteArray>
#include <QString>

namespace zelmo::test {

// What the kernel says of a process; empty when there is no such process.
QByteArray procFile(qint64 process, const QString& name);
// From the line "name: 12 kB" of such a file; 0 when there is none.
double procNumber(const QByteArray& text, const char* name);

} // namespace zelmo::test
