#pragma once

#include <QString>

namespace zelmo {

// Where the two message buses are; an empty address stands for a bus that is not there. A value.
struct BusAddresses {
    QString session;
    QString system;

    // No bus is started for being asked for, as the bus library itself would do.
    static BusAddresses fromEnvironment();
};

} // namespace zelmo
