#pragma once

#include "platform/linux/x11/X11PixelLayout.h"
#include "ui/DesktopCapture.h"

#include <QRect>

#include <chrono>

namespace zelmo {

class RootStrips;

// Reads what the root window of an X server shows, with all windows on it. The pixels come through memory that both
// share where the server is on this machine, else through the connection, which may be slow. Made for one look and
// keeps nothing; belongs to the thread that the connection is used on.
class X11RootReader {
public:
    // `patience` is how long the picture may be underway.
    X11RootReader(xcb_connection_t* connection, xcb_window_t root, std::chrono::milliseconds patience);

    // What the root covers now; nothing when the server is gone.
    std::optional<QRect> area() const;

    // That part of the root as opaque RGB32, row by row from the top. False when it reaches beyond the root, when the
    // server's pixels are numbers in a table of colours, or when patience ends; nothing of it counts then. What changes
    // on the screen meanwhile may be seen in a part of it.
    bool read(const QRect& part, const DesktopCapture::TakeRows& take) const;

private:
    bool read(const QRect& part, RootStrips& strips, int rowsAtOnce, const DesktopCapture::TakeRows& take) const;

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    std::chrono::milliseconds m_patience;
    std::optional<X11PixelLayout> m_layout;
};

} // namespace zelmo
