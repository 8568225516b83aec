#include "platform/linux/x11/EwmhPresentation.h"

#include "platform/linux/x11/QtX11Connection.h"
#include "platform/linux/x11/X11Connection.h"

#include <QGuiApplication>

#include <algorithm>
#include <span>
#include <string_view>

namespace zelmo {

namespace {

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// Adds a state to those that the window has. Qt keeps what it finds there when it writes its own.
void addState(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t state) {
    constexpr std::uint32_t mostStates = 64;
    const xcb_atom_t states = atom(connection, "_NET_WM_STATE");
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, window, states, XCB_ATOM_ATOM, 0, mostStates), nullptr));
    if (reply && reply->format == 32) {
        const std::span present(static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get())), reply->value_len);
        if (std::find(present.begin(), present.end(), state) != present.end())
            return;
    }
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, window, states, XCB_ATOM_ATOM, 32, 1, &state);
}

// Window managers read it as a window comes up, and take it off one that is gone. xfwm4 4.18 puts a window with the
// number of all workspaces on its last one, and goes by the state. They are not asked to leave the window out of their
// lists: some then don't give it the focus when a dialog of ours has closed.
void keepOnAllWorkspaces(QWindow& window) {
    constexpr std::uint32_t everyWorkspace = 0xffffffff;
    const auto x11 = QtX11Connection::current();
    if (!x11)
        return;
    const auto id = static_cast<xcb_window_t>(window.winId());
    const xcb_atom_t desktop = atom(x11->connection, "_NET_WM_DESKTOP");
    xcb_change_property(x11->connection, XCB_PROP_MODE_REPLACE, id, desktop, XCB_ATOM_CARDINAL, 32, 1, &everyWorkspace);
    addState(x11->connection, id, atom(x11->connection, "_NET_WM_STATE_STICKY"));
}

} // namespace

EwmhPresentation::EwmhPresentation(X11Connection* connection) : m_connection(connection), m_activation(connection) {
    if (!m_connection)
        return;
    constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection->get(), m_connection->root(), XCB_CW_EVENT_MASK, &events);
    m_connection->flush();
    connect(m_connection, &X11Connection::arrived, this, &EwmhPresentation::noteEvent);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &EwmhPresentation::noteFocus);
}

void EwmhPresentation::noteFocus(QWindow* window) {
    if (window)
        m_lastFocused = window;
}

void EwmhPresentation::noteEvent(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentByClient = 0x80;
    if ((event.response_type & ~sentByClient) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    const bool takesOver = change.window == m_connection->root() && change.state == XCB_PROPERTY_NEW_VALUE &&
                           change.atom == m_connection->atom("_NET_SUPPORTING_WM_CHECK");
    // It hears of this once it knows the windows that are there.
    if (takesOver && m_options && m_window && m_window == m_lastFocused)
        m_activation.activateIgnoringOtherApps(*m_window);
}

void EwmhPresentation::setOptions(PresentationOptions options, QWindow& window) {
    m_options = options;
    m_window = &window;
    if (!options) {
        window.hide();
        return;
    }
    if (!window.isVisible())
        keepOnAllWorkspaces(window);
    else if (QGuiApplication::focusWindow() != &window)
        m_activation.activateIgnoringOtherApps(window);
    window.showFullScreen();
}

} // namespace zelmo
