#pragma once

#include <memory>
#include <vector>
#include <xcb/xcb_keysyms.h>

namespace zelmo {

// Which keys and modifiers the server's keyboard has for a symbol, as it was when this was made. A value that its
// user makes anew when the layout changes.
class X11KeyboardLayout {
public:
    explicit X11KeyboardLayout(xcb_connection_t* connection);

    // The keys that give the symbol without Shift, in any group.
    std::vector<xcb_keycode_t> keysFor(xcb_keysym_t symbol) const;
    // The modifier that a key with the symbol sets, or 0.
    std::uint16_t modifierFor(xcb_keysym_t symbol) const;

private:
    struct SymbolsDeleter {
        void operator()(xcb_key_symbols_t* symbols) const { xcb_key_symbols_free(symbols); }
    };

    xcb_keysym_t symbolAt(xcb_keycode_t key, int column) const;

    std::unique_ptr<xcb_key_symbols_t, SymbolsDeleter> m_symbols;
    xcb_keycode_t m_firstKey;
    xcb_keycode_t m_lastKey;
    std::vector<std::vector<xcb_keycode_t>> m_modifierKeys; // of Shift, Lock, Control, Mod1 to Mod5
};

} // namespace zelmo
