#include "FakeTray.h"

#include <array>
#include <cstdlib>

namespace zelmo::test {

namespace {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, FreeDeleter>;

constexpr std::uint32_t socketColor = 0xff204060;

xcb_visualid_t visualWithAlpha(const xcb_screen_t* screen) {
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem; xcb_depth_next(&depth)) {
        if (depth.data->depth == 32 && depth.data->visuals_len > 0)
            return xcb_depth_visuals(depth.data)->visual_id;
    }
    return XCB_NONE;
}

} // namespace

FakeTray::FakeTray(const QString& display, Options options)
    : m_connection(xcb_connect(display.toLatin1().constData(), nullptr)),
      m_screen(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data), m_options(options) {
    m_owner = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_owner, m_screen->root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    const bool hasAlpha = options.depth == Depth::withAlpha;
    const xcb_visualid_t visual = hasAlpha ? visualWithAlpha(m_screen) : m_screen->root_visual;
    const xcb_visualid_t told = options.depth == Depth::unknownVisual ? 0x7fffffffU : visual;
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_owner, atom("_NET_SYSTEM_TRAY_VISUAL"),
                        XCB_ATOM_VISUALID, 32, 1, &told);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_owner, atom("_NET_SYSTEM_TRAY_ORIENTATION"),
                        XCB_ATOM_CARDINAL, 32, 1, &options.orientation);
    m_socket = xcb_generate_id(m_connection);
    const xcb_colormap_t colormap = xcb_generate_id(m_connection);
    xcb_create_colormap(m_connection, XCB_COLORMAP_ALLOC_NONE, colormap, m_screen->root, visual);
    const std::array<std::uint32_t, 5> values{hasAlpha ? 0 : socketColor, 0, 1, XCB_EVENT_MASK_NO_EVENT, colormap};
    xcb_create_window(m_connection, hasAlpha ? 32 : m_screen->root_depth, m_socket, m_screen->root,
                      static_cast<std::int16_t>(place().x()), static_cast<std::int16_t>(place().y()),
                      static_cast<std::uint16_t>(place().width()), static_cast<std::uint16_t>(place().height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK |
                          XCB_CW_COLORMAP,
                      values.data());
    xcb_map_window(m_connection, m_socket);
    const xcb_atom_t selection = atom("_NET_SYSTEM_TRAY_S0");
    xcb_set_selection_owner(m_connection, m_owner, selection, XCB_CURRENT_TIME);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_screen->root;
    message.type = atom("MANAGER");
    message.data.data32[1] = selection;
    message.data.data32[2] = m_owner;
    xcb_send_event(m_connection, 0, m_screen->root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    synchronize();
}

FakeTray::~FakeTray() {
    end();
}

void FakeTray::end() {
    if (m_connection)
        xcb_disconnect(m_connection);
    m_connection = nullptr;
}

void FakeTray::handleEvents() {
    while (m_connection) {
        const Owned<xcb_generic_event_t> event(xcb_poll_for_event(m_connection));
        if (!event)
            return;
        const int type = event->response_type & 0x7f;
        if (type == XCB_PROPERTY_NOTIFY) {
            const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
            m_sizeRequests += change->window == m_icon && change->atom == XCB_ATOM_WM_NORMAL_HINTS ? 1 : 0;
        }
        if (type != XCB_CLIENT_MESSAGE)
            continue;
        const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event.get());
        if (message->type != atom("_NET_SYSTEM_TRAY_OPCODE") || message->data.data32[1] != 0)
            continue;
        ++m_requests;
        if (m_options.docking == Docking::dies)
            end();
        else if (m_options.docking == Docking::embeds)
            embed(message->data.data32[2]);
    }
}

void FakeTray::embed(xcb_window_t window) {
    m_icon = window;
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &events);
    xcb_change_save_set(m_connection, XCB_SET_MODE_INSERT, window);
    xcb_reparent_window(m_connection, window, m_socket, 0, 0);
    resizeIcon(m_options.icon);
    if (embedFlags() & 1U)
        xcb_map_window(m_connection, window);
    synchronize();
}

void FakeTray::resizeIcon(QSize size) const {
    const std::array<std::uint32_t, 4> values{0, 0, static_cast<std::uint32_t>(size.width()),
                                              static_cast<std::uint32_t>(size.height())};
    xcb_configure_window(m_connection, *m_icon,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    synchronize();
}

QSize FakeTray::askedSize() const {
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, *m_icon, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 0, 18), nullptr));
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 7 * 4)
        return {};
    const auto* hints = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {static_cast<int>(hints[5]), static_cast<int>(hints[6])};
}

std::uint32_t FakeTray::embedFlags() const {
    const xcb_atom_t info = atom("_XEMBED_INFO");
    const Owned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection, xcb_get_property(m_connection, 0, *m_icon, info, info, 0, 2), nullptr));
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 8)
        return 0;
    return static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()))[1];
}

void FakeTray::release() {
    xcb_unmap_window(m_connection, *m_icon);
    xcb_reparent_window(m_connection, *m_icon, m_screen->root, 0, 0);
    synchronize();
}

void FakeTray::destroyIcon() const {
    xcb_destroy_window(m_connection, *m_icon);
    synchronize();
}

void FakeTray::giveUp() const {
    xcb_set_selection_owner(m_connection, XCB_WINDOW_NONE, atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
    xcb_destroy_window(m_connection, m_owner);
    synchronize();
}

void FakeTray::sendNonsense() const {
    for (const char* type : {"_XEMBED", "MANAGER", "_NET_SYSTEM_TRAY_OPCODE", "WM_PROTOCOLS"}) {
        for (const std::uint8_t format : std::array<std::uint8_t, 3>{8, 16, 32}) {
            for (const xcb_window_t target : {*m_icon, m_screen->root}) {
                xcb_client_message_event_t message{};
                message.response_type = XCB_CLIENT_MESSAGE;
                message.format = format;
                message.window = target;
                message.type = atom(type);
                std::fill(std::begin(message.data.data32), std::end(message.data.data32), 0xffffffffU);
                xcb_send_event(m_connection, 0, target, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                               reinterpret_cast<const char*>(&message));
            }
        }
    }
    synchronize();
}

void FakeTray::synchronize() const {
    const Owned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

xcb_atom_t FakeTray::atom(const char* name) const {
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(qstrlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace zelmo::test
