#include "platform/linux/x11/QtX11Connection.h"

#include <QGuiApplication>

namespace zelmo {

std::optional<QtX11Connection> QtX11Connection::current() {
    // Some of Qt's other platforms have this interface too, without a connection or without its events.
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || QGuiApplication::platformName() != QLatin1StringView("xcb"))
        return std::nullopt;
    xcb_connection_t* connection = x11->connection();
    return QtX11Connection{connection, xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root};
}

} // namespace zelmo
