#include "support/ProcessMemory.h"

#include "support/ProcFile.h"

namespace zelmo::test {

ProcessMemory ProcessMemory::of(qint64 process) {
    constexpr double kibibytes = 1024;
    const QByteArray text = procFile(process, QStringLiteral("smaps_rollup"));
    return {.proportional = procNumber(text, "Pss:") / kibibytes,
            .own = procNumber(text, "Private_Dirty:") / kibibytes};
}

} // namespace zelmo::test
