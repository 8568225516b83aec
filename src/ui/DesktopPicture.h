#pragma once

#include "iconart/SmallPicture.h"

#include <QRect>

class QScreen;

namespace zelmo {

class DesktopCapture;

// A part of what a screen shows, in the screen's pixels, as opaque RGB32. Null when the system gives none. Main thread.
QImage desktopPart(DesktopCapture& capture, const QScreen& screen, const QRect& pixels);

// All of what a screen shows, made smaller on the way. Main thread.
SmallPicture smallDesktop(DesktopCapture& capture, const QScreen& screen, int factor);

} // namespace zelmo
