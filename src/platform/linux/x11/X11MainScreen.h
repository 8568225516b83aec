#pragma once

#include "overlay/MainScreen.h"

namespace zelmo {

// Finds the main screen from the window manager's `_NET_ACTIVE_WINDOW`. Stateless: asks the server
// each time. Falls back to the pointer where there is no X server or no window manager.
class X11MainScreen : public MainScreen {
public:
    QScreen* mainScreen() const override;
};

} // namespace zelmo
