#pragma once

class QScreen;

namespace zelmo {

// Says which screen the user works on. Main thread only.
class MainScreen {
public:
    virtual ~MainScreen() = default;

    // The screen of the window that has the focus, else the pointer's, else the first; null when there is none.
    virtual QScreen* mainScreen() const = 0;
};

} // namespace zelmo
