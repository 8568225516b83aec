#pragma once

#include <QHash>
#include <QImage>

#include <optional>
#include <xcb/render.h>
#include <xcb/xcb.h>

namespace zelmo {

class X11Connection;

// Draws pictures with transparent parts into windows of any depth, over what is there, by the server's own means.
// Owned by the tray icon, whose connection outlives it. Main thread.
class RenderedIcon {
public:
    // Nothing where the server has no such means.
    static std::optional<RenderedIcon> create(const X11Connection& connection);

    // At this place of a window with that visual. Premultiplied ARGB32.
    void draw(xcb_window_t window, xcb_visualid_t visual, QPoint place, const QImage& image) const;

private:
    explicit RenderedIcon(xcb_connection_t* connection) : m_connection(connection) {}

    xcb_connection_t* m_connection;
    QHash<xcb_visualid_t, xcb_render_pictformat_t> m_formats;
    xcb_render_pictformat_t m_withAlpha = XCB_NONE;
};

} // namespace zelmo
