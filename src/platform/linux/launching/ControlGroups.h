#pragma once

#include <QByteArray>

#include <sys/types.h>

namespace zelmo {

// Asks the user's service manager, where there is one, for a control group of its own for a process that was just
// started: what it uses is then counted apart, and running out of memory ends it alone. `name` says what it is, such
// as an entry's ID without its ending. Does not wait, and nothing is reported; main thread.
void moveToOwnControlGroup(pid_t process, const QByteArray& name);

} // namespace zelmo
