#pragma once

#include "catalog/LaunchableApp.h"

#include <QList>
#include <QLocale>

namespace zelmo {

// Sorts by name as a person who uses `locale` expects it, without regard to case. Names that
// compare equal keep their order.
void sortByName(QList<LaunchableApp>& apps, const QLocale& locale);

} // namespace zelmo
