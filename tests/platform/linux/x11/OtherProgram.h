#pragma once

#include "support/XDisplay.h"

#include <vector>

namespace zelmo::test {

// Another program on the same desktop: it can hold keys, show a window and be typed into, and change the keyboard's
// layout.
class OtherProgram {
public:
    explicit OtherProgram(const QString& displayName);

    // False when yet another program has the combination.
    bool grabKey(xcb_keycode_t key, std::uint16_t modifiers) const;
    void ungrabKey(xcb_keycode_t key, std::uint16_t modifiers) const;
    bool grabKeyboard() const;
    void ungrabKeyboard() const;

    // Shows a window over the whole screen and gives it the focus.
    void showWindow();
    void takeFocus() const;
    bool hasFocus() const;
    // The keys pressed in the window or under a grab, so far.
    const std::vector<xcb_keycode_t>& pressedKeys();

    // The server's clock.
    xcb_timestamp_t now();
    // When the user last did something in a window, as the windows say themselves, shown or not.
    xcb_timestamp_t lastUserTime() const;

    // The layout's group that is in force, from 0.
    int keyboardGroup() const;
    // What a key gives from now on, shifted or not.
    void changeKey(xcb_keycode_t key, xcb_keysym_t symbol) const;
    // Which key sets one of the modifiers from now on; none when it is 0.
    void changeModifier(xcb_map_index_t modifier, xcb_keycode_t key) const;

private:
    std::unique_ptr<XDisplay> m_display;
    xcb_connection_t* m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    std::vector<xcb_keycode_t> m_pressedKeys;
};

} // namespace zelmo::test
