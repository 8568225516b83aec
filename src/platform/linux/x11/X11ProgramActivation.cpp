#include "platform/linux/x11/X11ProgramActivation.h"

#include "platform/linux/x11/QtX11Connection.h"
#include "platform/linux/x11/X11Connection.h"

#include <QWindow>

namespace zelmo {

void X11ProgramActivation::activateIgnoringOtherApps(QWindow& window) {
    const char* const request = "_NET_ACTIVE_WINDOW";
    const auto x11 = QtX11Connection::current();
    const bool isUnderstood =
        x11 && m_connection &&
        m_connection->numbers(m_connection->root(), "_NET_SUPPORTED").contains(m_connection->atom(request));
    if (!isUnderstood) {
        window.requestActivate();
        return;
    }
    // The window manager has to hear of the window first, and that on another connection.
    const XcbReply<xcb_get_input_focus_reply_t> answered(
        xcb_get_input_focus_reply(x11->connection, xcb_get_input_focus(x11->connection), nullptr));
    constexpr std::uint32_t sourceIsApplication = 1;
    m_connection->sendToWindowManager(static_cast<xcb_window_t>(window.winId()), request,
                                      {sourceIsApplication, m_connection->serverTime()});
}

} // namespace zelmo
