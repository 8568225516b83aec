#pragma once

class QWindow;

namespace zelmo {

// Makes the program the one that the user works with. Main thread.
class ProgramActivation {
public:
    virtual ~ProgramActivation() = default;

    // Gives the focus to the window, which is shown already, whatever has it. The user has just asked for it in a way
    // that the toolkit may know nothing of.
    virtual void activateIgnoringOtherApps(QWindow& window) = 0;
};

} // namespace zelmo
