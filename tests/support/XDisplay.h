#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace zelmo::test {

// A client of an X server that looks at the screen and does what a person's hands do: real key and
// pointer events through the XTEST extension.
class XDisplay {
public:
    // Null when there is no server with this name, such as ":7".
    static std::unique_ptr<XDisplay> open(const QString& name);
    ~XDisplay();
    XDisplay(const XDisplay&) = delete;
    XDisplay& operator=(const XDisplay&) = delete;

    xcb_connection_t* connection() const { return m_connection; }
    xcb_window_t root() const { return m_screen->root; }
    QSize size() const;

    // The viewable window with this title, at any depth.
    std::optional<xcb_window_t> viewableWindow(const QString& title) const;
    // In the root's pixels.
    std::optional<QRect> geometry(xcb_window_t window) const;
    xcb_window_t focusedWindow() const;
    // The window that the window manager says is active.
    std::optional<xcb_window_t> activeWindow() const;
    // The second part of the active window's class; empty when there is none.
    QString activeClass() const;
    // Asks the window manager for it, as a task bar does.
    void activate(xcb_window_t window) const;
    // Asks the window manager to close it, as its menu does.
    void close(xcb_window_t window) const;
    // Goes to another workspace, counted from 0, as a pager does; and which one is shown.
    void showWorkspace(std::uint32_t number) const;
    std::optional<std::uint32_t> shownWorkspace() const;
    // From now on, the windows that programs ask the window manager to activate are noted.
    void watchActivationRequests() const;
    QList<xcb_window_t> activationRequests() const;
    bool keyboardIsGrabbed() const;
    // What a property of a window holds; of a larger one its first megabyte.
    QByteArray property(xcb_window_t window, const QByteArray& name) const;
    // Whether some program has the selection with this name.
    bool hasOwner(const QByteArray& selection) const;

    // Presses and releases one key; a shifted one with Shift. False when the layout lacks it.
    bool typeKey(xcb_keysym_t symbol) const;
    bool typeText(const QString& text) const;
    // Holds a key that gives the symbol without Shift until it is released. False when the layout lacks it.
    bool holdKey(xcb_keysym_t symbol) const;
    bool releaseKey(xcb_keysym_t symbol) const;
    void movePointer(QPoint position) const;
    void click(QPoint position, xcb_button_index_t button = XCB_BUTTON_INDEX_1) const;
    // Down and up by themselves, with the pointer where it is.
    void holdButton() const;
    void releaseButton() const;
    // One step of the wheel, where the pointer is.
    void wheelDown() const;
    // Whether the server answers within half a second. It does not while another program has it to itself.
    bool serverAnswers() const;
    // Returns when the server has done all that was asked before.
    void synchronize() const;

    QImage screenshot() const;

private:
    explicit XDisplay(xcb_connection_t* connection);

    // The first key with the symbol on this level, or 0.
    xcb_keycode_t keyFor(xcb_keysym_t symbol, int level) const;
    void pressButton(std::uint8_t button) const;
    void sendButton(std::uint8_t button, bool press) const;
    void waitUntilReleased(std::uint8_t button) const;
    void sendKey(xcb_keycode_t code, bool press) const;
    void sendToWindowManager(xcb_window_t window, const QByteArray& type, std::uint32_t first) const;

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
};

inline constexpr xcb_keysym_t spaceKey = 0x0020;
inline constexpr xcb_keysym_t altKey = 0xffe9;
inline constexpr xcb_keysym_t controlKey = 0xffe3;
inline constexpr xcb_keysym_t superKey = 0xffeb;
inline constexpr xcb_keysym_t escapeKey = 0xff1b;
inline constexpr xcb_keysym_t backspaceKey = 0xff08;
inline constexpr xcb_keysym_t tabKey = 0xff09;
inline constexpr xcb_keysym_t leftKey = 0xff51;
inline constexpr xcb_keysym_t downKey = 0xff54;
inline constexpr xcb_keysym_t returnKey = 0xff0d;
inline constexpr xcb_keysym_t pageDownKey = 0xff56;

} // namespace zelmo::test
