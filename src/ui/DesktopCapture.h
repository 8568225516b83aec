#pragma once

#include <QImage>

#include <functional>

class QScreen;

namespace zelmo {

// Reads what is on a screen, which the wall is laid over. Main thread only.
class DesktopCapture {
public:
    virtual ~DesktopCapture() = default;

    // The next rows of a picture that is so large in all. Valid during the call.
    using TakeRows = std::function<void(const QImage& rows, QSize whole)>;

    // Gives what the screen shows at this moment, in its own pixels, as opaque RGB32 and row by row from the top. False
    // when the system does not give all of it; nothing of it counts then.
    virtual bool read(const QScreen& screen, const TakeRows& take) = 0;
};

} // namespace zelmo
