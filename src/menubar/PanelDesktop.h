#pragma once

#include <QByteArray>

#include <functional>

class QWindow;

namespace zelmo {

// Both are called on the main thread, and may end the watch.
struct PanelWatch {
    std::function<void()> pressed;   // a button of the pointer has gone down, anywhere on the desktop
    std::function<void()> focusLost; // the window had the keyboard, and another one has it now
};

// What a panel that opens beside a status item needs of the desktop beyond a window of its own. Main thread only.
class PanelDesktop {
public:
    virtual ~PanelDesktop() = default;

    // Whether the transparent parts of a window show what lies beneath.
    virtual bool isComposited() const = 0;
    // Gives the keyboard to a window that has just been shown because the user asked for it; the token is that of the
    // request, and empty where there is none.
    virtual void bringToFront(QWindow& window, const QByteArray& activationToken) = 0;
    // From now on, tells what the user does with regard to a window that is about to be shown and has been created.
    virtual void watch(QWindow& window, PanelWatch watch) = 0;
    virtual void endWatch() = 0;
};

} // namespace zelmo
