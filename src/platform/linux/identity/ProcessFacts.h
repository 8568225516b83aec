#pragma once

#include <QByteArray>

#include <cstdint>

namespace zelmo {

// What the system tells about a process. Whatever can't be read, as of another user's process, is empty.
struct ProcessFacts {
    QByteArray executable; // the file that runs, links resolved
    QByteArray script;     // what the executable interprets, when it is a script that names it as its interpreter
    // The desktop entry that this very process was started from, by the mark that launchers leave. One that the
    // process inherited, as everything that is started in a terminal does, does not count.
    QByteArray launchedEntry;
    // The ID of the entry whose sandbox (Flatpak, Snap) the process is in.
    QByteArray sandboxEntryId;

    // `processes` is where the system shows its processes.
    static ProcessFacts read(std::int64_t process, const QByteArray& processes = QByteArrayLiteral("/proc"));
};

} // namespace zelmo
