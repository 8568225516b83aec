#pragma once

#include <QRect>
#include <QString>

#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace zelmo::test {

// Stands in for the desktop's tray on an X server, in the way of the freedesktop protocol, and does wrong what it is
// told to. It acts only in `handleEvents()`, and ends, as by a crash, when it is destroyed.
class FakeTray {
public:
    enum class Depth { ofTheRoot, withAlpha, unknownVisual };
    enum class Docking { embeds, ignores, dies };

    struct Options {
        QSize icon{24, 24};
        Depth depth = Depth::ofTheRoot;
        Docking docking = Docking::embeds;
        std::uint32_t orientation = 0;
    };

    // On the display of this name. Takes the selection and says so.
    FakeTray(const QString& display, Options options);
    FakeTray(const QString& display) : FakeTray(display, Options{}) {}
    ~FakeTray();
    FakeTray(const FakeTray&) = delete;
    FakeTray& operator=(const FakeTray&) = delete;

    void handleEvents();
    // The window that asked to be embedded last, and how many have asked.
    std::optional<xcb_window_t> icon() const { return m_icon; }
    int requests() const { return m_requests; }
    // How often it has told of the size that it wants, since it was embedded.
    int sizeRequests() const { return m_sizeRequests; }
    // Of the socket, in the root's pixels.
    static QRect place() { return {40, 40, 64, 64}; }

    // The size that the icon asks for.
    QSize askedSize() const;
    std::uint32_t embedFlags() const;
    void resizeIcon(QSize size) const;
    // Gives it back to the root, as a tray that ends in order.
    void release();
    // Takes the window away from its program.
    void destroyIcon() const;
    // Gives up the selection without ending.
    void giveUp() const;
    // Sends the icon what no tray sends.
    void sendNonsense() const;
    void synchronize() const;

private:
    void end();
    void embed(xcb_window_t window);
    xcb_atom_t atom(const char* name) const;

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    Options m_options;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
    xcb_window_t m_socket = XCB_WINDOW_NONE;
    std::optional<xcb_window_t> m_icon;
    int m_requests = 0;
    int m_sizeRequests = 0;
};

} // namespace zelmo::test
