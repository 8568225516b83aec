#pragma once

#include "catalog/RunningApplication.h"

#include <functional>

namespace zelmo {

// Knows which application the user has in front, and can put another one there. Main thread only.
class Workspace {
public:
    using ActivationHandler = std::function<void(const std::optional<RunningApplication>&)>;

    virtual ~Workspace() = default;

    // Nothing when no application is in front, or when the desktop does not tell.
    virtual std::optional<RunningApplication> frontmostApplication() const = 0;

    // The handler is told of each application that comes to the front; of nothing when none is in front any more,
    // or nobody can be there to use it, as when the screen is locked.
    virtual void setActivationHandler(ActivationHandler handler) = 0;

    // Brings the application to the front and gives it the keyboard. Does nothing when it has ended meanwhile.
    virtual void activate(const RunningApplication& application) = 0;
};

} // namespace zelmo
