#include "platform/linux/x11/X11KeyboardLayout.h"

#include "platform/linux/x11/XcbReply.h"

#include <algorithm>

namespace zelmo {

namespace {

// Two groups of two levels each, as the core protocol lays them out.
constexpr int columnsOfKey = 4;
constexpr int columnsOfGroup = 2;

} // namespace

X11KeyboardLayout::X11KeyboardLayout(xcb_connection_t* connection)
    : m_symbols(xcb_key_symbols_alloc(connection)), m_firstKey(xcb_get_setup(connection)->min_keycode),
      m_lastKey(xcb_get_setup(connection)->max_keycode) {
    const XcbReply<xcb_get_modifier_mapping_reply_t> reply(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
    if (!reply)
        return;
    const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(reply.get());
    const int width = reply->keycodes_per_modifier;
    for (int i = 0; i < xcb_get_modifier_mapping_keycodes_length(reply.get()); i += width)
        m_modifierKeys.emplace_back(keys + i, keys + i + width);
}

std::vector<xcb_keycode_t> X11KeyboardLayout::keysFor(xcb_keysym_t symbol) const {
    std::vector<xcb_keycode_t> keys;
    for (int code = m_firstKey; code <= m_lastKey; ++code) {
        const auto key = static_cast<xcb_keycode_t>(code);
        if (symbolAt(key, 0) == symbol || symbolAt(key, columnsOfGroup) == symbol)
            keys.push_back(key);
    }
    return keys;
}

std::uint16_t X11KeyboardLayout::modifierFor(xcb_keysym_t symbol) const {
    for (std::size_t i = 0; i < m_modifierKeys.size(); ++i) {
        const bool hasSymbol = std::ranges::any_of(m_modifierKeys[i], [&](xcb_keycode_t key) {
            for (int column = 0; key != 0 && column < columnsOfKey; ++column) {
                if (symbolAt(key, column) == symbol)
                    return true;
            }
            return false;
        });
        if (hasSymbol)
            return static_cast<std::uint16_t>(1U << i);
    }
    return 0;
}

xcb_keysym_t X11KeyboardLayout::symbolAt(xcb_keycode_t key, int column) const {
    return xcb_key_symbols_get_keysym(m_symbols.get(), key, column);
}

} // namespace zelmo
