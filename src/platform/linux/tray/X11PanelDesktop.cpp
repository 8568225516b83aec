#include "platform/linux/tray/X11PanelDesktop.h"

#include "platform/linux/x11/QtX11Connection.h"
#include "platform/linux/x11/X11Connection.h"

#include <QWindow>

// The header has a member of a name that C++ keeps for itself.
#define explicit isExplicit
#include <xcb/xinput.h>
#undef explicit

namespace zelmo {

namespace {

constexpr std::uint8_t sentByClient = 0x80;
constexpr std::uint32_t lastWheelButton = 7;
constexpr std::uint32_t firstWheelButton = 4;

// At the end of tokens that were made for X; 0 where there is none.
xcb_timestamp_t timeOf(const QByteArray& token) {
    const qsizetype place = token.lastIndexOf("_TIME");
    return place < 0 ? 0 : token.mid(place + 5).toUInt();
}

} // namespace

X11PanelDesktop::X11PanelDesktop(X11Connection* connection) : m_connection(connection) {
    if (m_connection)
        connect(m_connection, &X11Connection::arrived, this, &X11PanelDesktop::handle);
}

bool X11PanelDesktop::isComposited() const {
    if (!m_connection)
        return false;
    const xcb_atom_t selection = m_connection->atom("_NET_WM_CM_S" + QByteArray::number(m_connection->screenNumber()));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_connection->get(), xcb_get_selection_owner(m_connection->get(), selection), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void X11PanelDesktop::bringToFront(QWindow& window, const QByteArray& activationToken) {
    const auto x11 = QtX11Connection::current();
    if (!m_connection || !x11)
        return;
    // The click went to the tray: for the toolkit, the user did something long ago.
    const xcb_timestamp_t clicked = timeOf(activationToken);
    const xcb_timestamp_t time = clicked ? clicked : m_connection->serverTime();
    const auto id = static_cast<xcb_window_t>(window.winId());
    xcb_change_property(x11->connection, XCB_PROP_MODE_REPLACE, id, m_connection->atom("_NET_WM_USER_TIME"),
                        XCB_ATOM_CARDINAL, 32, 1, &time);
    // By the toolkit's connection, so that it comes after the window.
    constexpr std::uint32_t fromApplication = 1;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = id;
    message.type = m_connection->atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = fromApplication;
    message.data.data32[1] = time;
    xcb_send_event(x11->connection, 0, x11->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(x11->connection);
}

void X11PanelDesktop::watch(QWindow& window, PanelWatch watch) {
    endWatch();
    m_watch = std::move(watch);
    if (!m_connection) {
        m_activeChange = connect(&window, &QWindow::activeChanged, this, [this, &window] {
            if (!window.isActive() && m_watch.focusLost)
                std::function(m_watch.focusLost)();
        });
        return;
    }
    m_window = static_cast<xcb_window_t>(window.winId());
    m_focus = Focus::expected;
    selectFocus(XCB_EVENT_MASK_FOCUS_CHANGE);
    if (!m_inputExtension)
        m_inputExtension = inputExtension();
    selectRawPresses(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
}

void X11PanelDesktop::endWatch() {
    m_watch = {};
    disconnect(m_activeChange);
    if (m_window == XCB_WINDOW_NONE)
        return;
    selectFocus(XCB_EVENT_MASK_NO_EVENT);
    selectRawPresses(0);
    m_window = XCB_WINDOW_NONE;
}

std::optional<std::uint8_t> X11PanelDesktop::inputExtension() const {
    const auto* extension = xcb_get_extension_data(m_connection->get(), &xcb_input_id);
    if (!extension || !extension->present)
        return std::nullopt;
    // Since this version, presses are told of also while another program has the pointer to itself.
    const XcbReply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        m_connection->get(), xcb_input_xi_query_version(m_connection->get(), 2, 2), nullptr));
    return version ? std::optional(extension->major_opcode) : std::nullopt;
}

void X11PanelDesktop::selectFocus(std::uint32_t events) {
    // Done when this returns: the window may have the keyboard a moment later, by way of another connection.
    std::free(xcb_request_check(m_connection->get(), xcb_change_window_attributes_checked(m_connection->get(), m_window,
                                                                                          XCB_CW_EVENT_MASK, &events)));
}

void X11PanelDesktop::selectRawPresses(std::uint32_t events) {
    if (!m_inputExtension)
        return;
    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{{.deviceid = XCB_INPUT_DEVICE_ALL_MASTER, .mask_len = 1}, events};
    xcb_input_xi_select_events(m_connection->get(), m_connection->root(), 1, &selection.head);
    m_connection->flush();
}

void X11PanelDesktop::handleFocus(const xcb_focus_in_event_t& event) {
    // The window keeps the focus while another program holds the keyboard for a moment, and while a part of it has it.
    const bool isReal = event.mode != XCB_NOTIFY_MODE_GRAB && event.mode != XCB_NOTIFY_MODE_UNGRAB &&
                        event.detail != XCB_NOTIFY_DETAIL_INFERIOR && event.detail < XCB_NOTIFY_DETAIL_POINTER;
    if (event.event != m_window || !isReal)
        return;
    const bool isHere = (event.response_type & ~sentByClient) == XCB_FOCUS_IN;
    const bool wasHere = m_focus == Focus::here;
    m_focus = isHere ? Focus::here : Focus::expected;
    if (wasHere && !isHere && m_watch.focusLost)
        std::function(m_watch.focusLost)();
}

void X11PanelDesktop::handle(const xcb_generic_event_t& event) {
    if (m_window == XCB_WINDOW_NONE)
        return;
    const int type = event.response_type & ~sentByClient;
    if (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) {
        handleFocus(reinterpret_cast<const xcb_focus_in_event_t&>(event));
        return;
    }
    if (type != XCB_GE_GENERIC || !m_inputExtension)
        return;
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != *m_inputExtension || generic.event_type != XCB_INPUT_RAW_BUTTON_PRESS)
        return;
    const std::uint32_t button = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event).detail;
    const bool isWheel = button >= firstWheelButton && button <= lastWheelButton;
    // A copy, for it may end the watch.
    if (!isWheel && m_watch.pressed)
        std::function(m_watch.pressed)();
}

} // namespace zelmo
