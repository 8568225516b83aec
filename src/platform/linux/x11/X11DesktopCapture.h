#pragma once

#include "ui/DesktopCapture.h"

#include <chrono>

namespace zelmo {

// Reads a screen of the X server that Qt shows its windows on. Keeps nothing between two pictures.
// Main thread.
class X11DesktopCapture : public DesktopCapture {
public:
    // Of a server that is far away the picture is not worth a longer wait than `patience`.
    explicit X11DesktopCapture(std::chrono::milliseconds patience = std::chrono::milliseconds(250))
        : m_patience(patience) {}

    // False also where the X server is a guest of a Wayland compositor and sees nothing but its own windows.
    // What of the screen is not on the desktop, as when it has just been unplugged, is black; false when that is all.
    bool read(const QScreen& screen, const TakeRows& take) override;

private:
    std::chrono::milliseconds m_patience;
};

} // namespace zelmo
