#pragma once

#include <QByteArray>

#include <functional>

class QWindow;

namespace zelmo {

// What a panel that opens beside a status item needs of the desktop beyond a window of its own. Main thread only.
class PanelDesktop {
public:
    virtual ~PanelDesktop() = default;

    // Whether the transparent parts of a window show what lies beneath.
    virtual bool isComposited() const = 0;
    // Gives the keyboard to a window that has just been shown because the user asked for it; the token is that of the
    // request, and empty where there is none.
    virtual void bringToFront(QWindow& window, const QByteArray& activationToken) = 0;
    // Calls the handler whenever a button of the pointer goes down anywhere on the desktop, until it gets another; an
    // empty one ends it.
    virtual void watchPresses(std::function<void()> pressed) = 0;
};

} // namespace zelmo
