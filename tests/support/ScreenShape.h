#pragma once

#include "support/XDisplay.h"

namespace zelmo::test {

// Gives the server's only output another mode, no larger than the screen was at first, and the screen the same size.
// For programs, a screen that is turned on its side is one whose width and height change places.
void resizeScreen(const XDisplay& display, QSize size);

} // namespace zelmo::test
