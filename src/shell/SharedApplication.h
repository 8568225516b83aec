#pragma once

#include <QImage>

#include <functional>

namespace zelmo {

// How the desktop presents a program.
enum class ActivationPolicy {
    regular, // with an icon among the running programs
};

// What the desktop sees of the program as a whole. Made once at start-up, before anything that is shown; without it
// the program can't run. Main thread.
class SharedApplication {
public:
    virtual ~SharedApplication() = default;

    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    // The icon of every window that does not have one of its own, drawn when it is needed. A null picture leaves the
    // icon as it is.
    virtual void setApplicationIconImage(std::function<QImage()> draw) = 0;
    // Ends the program as soon as the events of this moment are handled.
    virtual void terminate() = 0;
};

} // namespace zelmo
