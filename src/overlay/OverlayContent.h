#pragma once

class QScreen;

namespace zelmo {

class OverlayWindow;

// What the wall's window shows. Main thread only.
class OverlayContent {
public:
    virtual ~OverlayContent() = default;

    // Before the window comes up on this screen, while the screen still shows what lies behind.
    virtual void prepare(const QScreen& screen) = 0;
    // Puts the content into the window, once.
    virtual void load(OverlayWindow& window) = 0;
    // The window is on the screen no more.
    virtual void putAway() = 0;
};

} // namespace zelmo
