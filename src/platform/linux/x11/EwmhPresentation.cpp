#include "platform/linux/x11/EwmhPresentation.h"

#include "platform/linux/x11/QtX11Connection.h"
#include "platform/linux/x11/XcbReply.h"

#include <QWindow>

#include <string_view>
#include <xcb/xcb.h>

namespace zelmo {

namespace {

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// Window managers read it as a window comes up, and take it off one that is gone. They are not asked to leave the
// window out of their lists: some then don't give it the focus when a dialog of ours has closed.
void keepOnAllWorkspaces(QWindow& window) {
    constexpr std::uint32_t everyWorkspace = 0xffffffff;
    const auto x11 = QtX11Connection::current();
    if (!x11)
        return;
    const auto id = static_cast<xcb_window_t>(window.winId());
    const xcb_atom_t desktop = atom(x11->connection, "_NET_WM_DESKTOP");
    xcb_change_property(x11->connection, XCB_PROP_MODE_REPLACE, id, desktop, XCB_ATOM_CARDINAL, 32, 1, &everyWorkspace);
}

} // namespace

void EwmhPresentation::setOptions(PresentationOptions options, QWindow& window) {
    m_options = options;
    if (!options) {
        window.hide();
        return;
    }
    if (!window.isVisible())
        keepOnAllWorkspaces(window);
    window.showFullScreen();
}

} // namespace zelmo
