#pragma once

#include <QByteArray>
#include <QList>

namespace zelmo::test {

// One line for everything at and below a path: its kind, mode, time, contents or target, extended attributes, and
// which other names it has. Equal pictures mean equal trees, whatever the place.
QList<QByteArray> pictureOf(const QByteArray& path);

} // namespace zelmo::test
