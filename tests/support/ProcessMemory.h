#pragma once

#include <QtGlobal>

namespace zelmo::test {

// Of a process, in MiB; 0 when there is no such process.
struct ProcessMemory {
    double proportional = 0; // what it shares with others counts in shares
    double own = 0;          // what would be given back if it ended, but for files that are only read

    static ProcessMemory of(qint64 process);
};

} // namespace zelmo::test
