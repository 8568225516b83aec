#pragma once

#include "support/XDisplay.h"

namespace zelmo::test {

// How the X server's screen is divided: one monitor, or two of half its width.
enum class Monitors { one, sideBySide };
enum class Monitor { left, right };

// Divides the screen in two, the left half being the primary one.
void divideScreen(const XDisplay& display);
// Leaves the other half as the only monitor.
void removeMonitor(const XDisplay& display, Monitor monitor);
// Says of the right half that it is so large, on the desktop or not.
void resizeRightMonitor(const XDisplay& display, QSize size);

} // namespace zelmo::test
