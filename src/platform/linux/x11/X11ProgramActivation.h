#pragma once

#include "settings/ProgramActivation.h"

namespace zelmo {

class X11Connection;

// Asks the window manager with the server's present time: with the time of the last thing that the user did in one of
// our windows, which is all the toolkit knows, it would take the request for an old one and refuse. Main thread.
class X11ProgramActivation : public ProgramActivation {
public:
    // The connection outlives it; without one, the toolkit asks.
    explicit X11ProgramActivation(X11Connection* connection) : m_connection(connection) {}

    void activateIgnoringOtherApps(QWindow& window) override;

private:
    X11Connection* m_connection;
};

} // namespace zelmo
