#pragma once

#include <QImage>

class QScreen;

namespace zelmo {

// Gives a picture of what is on a screen, which the wall is laid over. Main thread only.
class DesktopCapture {
public:
    virtual ~DesktopCapture() = default;

    // What the screen shows at this moment, in its own pixels, as opaque RGB32; null when the system gives none.
    virtual QImage capture(const QScreen& screen) = 0;
};

} // namespace zelmo
