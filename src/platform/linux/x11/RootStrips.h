#pragma once

#include <QRect>

#include <cstdint>
#include <memory>
#include <xcb/xcb.h>

namespace zelmo {

// Asks an X server for strips of its root window and gives their pixels as the server lays them out. The next strip may
// be asked for while one is underway, so that the server works meanwhile; no more than that. Belongs to whoever reads
// the screen and to the thread that the connection is used on.
class RootStrips {
public:
    virtual ~RootStrips() = default;

    // A part of the root that is not empty and has coordinates of 16 bits.
    virtual void ask(const QRect& strip) = 0;
    // The pixels of the strip that was asked for first among those underway, valid until the next strip but one is
    // asked for. Null when the server refuses, or gives less than `size` bytes.
    virtual const std::uint8_t* take(std::size_t size) = 0;
};

// Through memory of twice `stripSize` that the server shares with this program. Null when it shares none.
std::unique_ptr<RootStrips> shareRootStrips(xcb_connection_t* connection, xcb_window_t root, std::size_t stripSize);
// Through the connection itself, which may be slow.
std::unique_ptr<RootStrips> receiveRootStrips(xcb_connection_t* connection, xcb_window_t root);

} // namespace zelmo
