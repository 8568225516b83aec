#pragma once

#include <optional>
#include <xcb/xcb.h>

namespace zelmo {

// The connection on which Qt talks to the X server and gets its events from it.
struct QtX11Connection {
    // Nothing where Qt shows its windows by other means.
    static std::optional<QtX11Connection> current();

    xcb_connection_t* connection;
    xcb_window_t root;
};

} // namespace zelmo
