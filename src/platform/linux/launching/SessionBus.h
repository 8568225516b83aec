#pragma once

#include "platform/linux/launching/LaunchContext.h"

namespace zelmo {

// Whether the environment tells of a session bus. Without an address GIO would start one.
bool hasSessionBus();

// GIO ends the program when the bus goes; it won't with this connection any more.
void keepRunningWithout(GDBusConnection& bus);

// GIO's connection to the session bus, for as long as which GIO uses no other one; null when there is none. Waits for
// the bus to answer, as GIO does whenever it launches an entry. Main thread.
GObjectPointer<GDBusConnection> sessionBus();

} // namespace zelmo
