#include "OtherProgram.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

namespace zelmo::test {

namespace {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, FreeDeleter>;

xcb_atom_t atomNamed(xcb_connection_t* connection, std::string_view name) {
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

OtherProgram::OtherProgram(const QString& displayName)
    : m_display(XDisplay::open(displayName)), m_connection(m_display->connection()) {}

bool OtherProgram::grabKey(xcb_keycode_t key, std::uint16_t modifiers) const {
    const Owned<xcb_generic_error_t> refusal(
        xcb_request_check(m_connection, xcb_grab_key_checked(m_connection, 0, m_display->root(), modifiers, key,
                                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !refusal;
}

void OtherProgram::ungrabKey(xcb_keycode_t key, std::uint16_t modifiers) const {
    xcb_ungrab_key(m_connection, key, m_display->root(), modifiers);
    m_display->synchronize();
}

bool OtherProgram::grabKeyboard() const {
    const Owned<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(m_connection,
                                xcb_grab_keyboard(m_connection, 0, m_display->root(), XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void OtherProgram::ungrabKeyboard() const {
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    m_display->synchronize();
}

void OtherProgram::showWindow() {
    const QSize screen = m_display->size();
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
    m_window = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_display->root(), 0, 0,
                      static_cast<std::uint16_t>(screen.width()), static_cast<std::uint16_t>(screen.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    const xcb_atom_t state = atomNamed(m_connection, "_NET_WM_STATE");
    const xcb_atom_t fullScreen = atomNamed(m_connection, "_NET_WM_STATE_FULLSCREEN");
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, state, XCB_ATOM_ATOM, 32, 1, &fullScreen);
    xcb_map_window(m_connection, m_window);
    m_display->synchronize();
}

void OtherProgram::takeFocus() const {
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    m_display->synchronize();
}

bool OtherProgram::hasFocus() const {
    return m_window != XCB_WINDOW_NONE && m_display->focusedWindow() == m_window;
}

const std::vector<xcb_keycode_t>& OtherProgram::pressedKeys() {
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        if (event->response_type == XCB_KEY_PRESS)
            m_pressedKeys.push_back(reinterpret_cast<const xcb_key_press_event_t*>(event.get())->detail);
    }
    return m_pressedKeys;
}

xcb_timestamp_t OtherProgram::now() {
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    const xcb_window_t window = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_display->root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0, nullptr);
    xcb_destroy_window(m_connection, window);
    xcb_flush(m_connection);
    while (const Owned<xcb_generic_event_t> event{xcb_wait_for_event(m_connection)}) {
        if (event->response_type == XCB_PROPERTY_NOTIFY)
            return reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
    }
    return 0;
}

xcb_timestamp_t OtherProgram::lastUserTime() const {
    const xcb_atom_t name = atomNamed(m_connection, "_NET_WM_USER_TIME");
    xcb_timestamp_t last = 0;
    std::vector<xcb_window_t> pending{m_display->root()};
    while (!pending.empty()) {
        const xcb_window_t window = pending.back();
        pending.pop_back();
        const auto propertyCookie = xcb_get_property(m_connection, 0, window, name, XCB_ATOM_CARDINAL, 0, 1);
        const auto treeCookie = xcb_query_tree(m_connection, window);
        const Owned<xcb_get_property_reply_t> property(xcb_get_property_reply(m_connection, propertyCookie, nullptr));
        const Owned<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(m_connection, treeCookie, nullptr));
        if (property && xcb_get_property_value_length(property.get()) == sizeof last)
            last = std::max(last, *static_cast<const xcb_timestamp_t*>(xcb_get_property_value(property.get())));
        if (tree) {
            const xcb_window_t* children = xcb_query_tree_children(tree.get());
            pending.insert(pending.end(), children, children + xcb_query_tree_children_length(tree.get()));
        }
    }
    return last;
}

int OtherProgram::keyboardGroup() const {
    const Owned<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_display->root()), nullptr));
    return reply ? (reply->mask >> 13) & 3 : 0;
}

void OtherProgram::changeKey(xcb_keycode_t key, xcb_keysym_t symbol) const {
    const std::array symbols{symbol, symbol};
    xcb_change_keyboard_mapping(m_connection, 1, key, static_cast<std::uint8_t>(symbols.size()), symbols.data());
    m_display->synchronize();
}

void OtherProgram::changeModifier(xcb_map_index_t modifier, xcb_keycode_t key) const {
    const Owned<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
    const int width = mapping->keycodes_per_modifier;
    xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(mapping.get());
    const int count = xcb_get_modifier_mapping_keycodes_length(mapping.get());
    // A key sets one modifier only.
    std::replace(keys, keys + count, key, xcb_keycode_t{0});
    std::fill_n(keys + modifier * width, width, xcb_keycode_t{0});
    keys[modifier * width] = key;
    const Owned<xcb_set_modifier_mapping_reply_t> done(xcb_set_modifier_mapping_reply(
        m_connection, xcb_set_modifier_mapping(m_connection, mapping->keycodes_per_modifier, keys), nullptr));
    if (!done || done->status != XCB_MAPPING_STATUS_SUCCESS)
        qFatal("the modifiers can't be changed");
}

} // namespace zelmo::test
