#pragma once

#include "support/DesktopSession.h"

namespace zelmo::bench {

// As many applications as asked for, each with an icon of its own.
void installApplications(const test::DesktopSession& session, int count);

// What a process has used since it began, all its threads together.
struct Effort {
    double processorMilliseconds = 0;
    // How often the kernel has taken the processor from it because it had nothing to do.
    double pauses = 0;
};
Effort effortOf(qint64 process);

// Alt and Space, as a person presses them.
void pressShortcut(const test::XDisplay& display);
// Presses Escape and waits until the wall has shrunk away. False when it does not.
bool hideWall(const test::DesktopSession& session);
bool waitUntilHidden(const test::DesktopSession& session);

} // namespace zelmo::bench
