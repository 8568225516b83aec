#pragma once

#include <QLoggingCategory>

namespace zelmo {

// Says nothing unless "zelmo.catalog.info" is switched on in QT_LOGGING_RULES.
Q_DECLARE_LOGGING_CATEGORY(catalogLog)

} // namespace zelmo
