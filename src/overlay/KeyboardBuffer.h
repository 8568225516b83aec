#pragma once

class QWindow;

namespace zelmo {

// Keeps what the user types between the summons and the moment when the wall has the focus, which
// would otherwise go to the program below or be lost. Main thread only.
class KeyboardBuffer {
public:
    virtual ~KeyboardBuffer() = default;

    // Keys are kept from now on. Does nothing when they already are, or when the system refuses.
    virtual void begin() = 0;

    // Ends the keeping as soon as the window has the focus, and gives it the kept keys in their order.
    virtual void deliverTo(QWindow& window) = 0;

    // Ends the keeping and forgets the kept keys.
    virtual void cancel() = 0;
};

} // namespace zelmo
