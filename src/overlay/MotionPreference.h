#pragma once

namespace zelmo {

// Says whether windows should appear and go without travelling and growing. Main thread only.
class MotionPreference {
public:
    virtual ~MotionPreference() = default;

    // Whether the user asked the desktop for less movement.
    virtual bool reducesMotion() const = 0;
};

} // namespace zelmo
