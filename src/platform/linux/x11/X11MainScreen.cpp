#include "platform/linux/x11/X11MainScreen.h"

#include "platform/linux/x11/QtX11Connection.h"
#include "platform/linux/x11/ScreenPixels.h"
#include "platform/linux/x11/XcbReply.h"

#include <QCursor>
#include <QGuiApplication>

#include <optional>
#include <string_view>
#include <xcb/xcb.h>

namespace zelmo {

namespace {

std::optional<xcb_window_t> activeWindow(xcb_connection_t* connection, xcb_window_t root) {
    constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
    const XcbReply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return std::nullopt;
    const XcbReply<xcb_get_property_reply_t> property(xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, root, atom->atom, XCB_ATOM_WINDOW, 0, 1), nullptr));
    if (!property || property->format != 32 || xcb_get_property_value_length(property.get()) < 4)
        return std::nullopt;
    const xcb_window_t window = *static_cast<const xcb_window_t*>(xcb_get_property_value(property.get()));
    if (window == XCB_WINDOW_NONE)
        return std::nullopt;
    return window;
}

// The middle of a window in the server's pixels.
std::optional<QPoint> center(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window) {
    const auto geometryCookie = xcb_get_geometry(connection, window);
    const auto originCookie = xcb_translate_coordinates(connection, window, root, 0, 0);
    const XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(connection, geometryCookie, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(connection, originCookie, nullptr));
    if (!geometry || !origin)
        return std::nullopt;
    return QPoint(origin->dst_x + geometry->width / 2, origin->dst_y + geometry->height / 2);
}

QScreen* screenAtPixel(QPoint pixel) {
    for (QScreen* screen : QGuiApplication::screens()) {
        if (pixelsOf(*screen).contains(pixel))
            return screen;
    }
    return nullptr;
}

} // namespace

QScreen* X11MainScreen::mainScreen() const {
    if (const auto x11 = QtX11Connection::current()) {
        if (const auto window = activeWindow(x11->connection, x11->root)) {
            if (const auto pixel = center(x11->connection, x11->root, *window)) {
                if (QScreen* screen = screenAtPixel(*pixel))
                    return screen;
            }
        }
    }
    if (QScreen* screen = QGuiApplication::screenAt(QCursor::pos()))
        return screen;
    return QGuiApplication::primaryScreen();
}

} // namespace zelmo
