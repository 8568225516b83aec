#pragma once

#include "platform/linux/x11/X11Connection.h"
#include "support/DesktopSession.h"

namespace zelmo::test {

// Returns when the connection has handed out every event that the server had for it until now.
inline void settle(X11Connection& connection) {
    const xcb_window_t window = xcb_generate_id(connection.get());
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    bool isLast = false;
    const auto listening = QObject::connect(&connection, &X11Connection::arrived, [&](const auto& event) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        isLast |= (event.response_type & 0x7f) == XCB_CLIENT_MESSAGE && message.window == window;
    });
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = XCB_ATOM_INTEGER;
    xcb_send_event(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    connection.flush();
    if (!DesktopSession::waitFor([&] { return isLast; }))
        qFatal("the server does not answer");
    QObject::disconnect(listening);
    xcb_destroy_window(connection.get(), window);
}

} // namespace zelmo::test
