#pragma once

#include "platform/linux/x11/XcbReply.h"
#include "support/XDisplay.h"

#include <QPainter>

#include <string_view>
#include <vector>

namespace zelmo::test {

// Windows of one colour each on a display, which no window manager touches, and the picture of the screen that they
// make.
class PaintedWindows {
public:
    explicit PaintedWindows(const XDisplay& display)
        : m_display(display), m_expected(display.size(), QImage::Format_RGB32) {
        m_expected.fill(Qt::black);
        add(QRect(QPoint(0, 0), display.size()), QColor(10, 120, 200));
        add({100, 50, 61, 43}, Qt::red);
        add({130, 70, 200, 133}, QColor(17, 250, 99));
        add({display.size().width() - 1, display.size().height() - 1, 1, 1}, Qt::white);
        add({0, 1, 1, 1}, QColor(255, 255, 0));
    }

    // A window that only a compositor can show as it wants to be shown, and that is not in the expected picture.
    void addHalfTransparent(const QRect& area, const QColor& color) {
        const QImage before = m_expected;
        add(area, color);
        m_expected = before;
        xcb_connection_t* connection = m_display.connection();
        const std::string_view name = "_NET_WM_WINDOW_OPACITY";
        const XcbReply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
            connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
        const std::uint32_t half = 0x80000000;
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, m_windows.back(), atom->atom, XCB_ATOM_CARDINAL, 32, 1,
                            &half);
        m_display.synchronize();
    }

    void add(const QRect& area, const QColor& color) {
        xcb_connection_t* connection = m_display.connection();
        const auto part = [](int value) { return static_cast<std::uint16_t>(value * 257); };
        const xcb_colormap_t colors = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->default_colormap;
        const XcbReply<xcb_alloc_color_reply_t> pixel(xcb_alloc_color_reply(
            connection, xcb_alloc_color(connection, colors, part(color.red()), part(color.green()), part(color.blue())),
            nullptr));
        const std::uint32_t values[]{pixel->pixel, 1};
        m_windows.push_back(xcb_generate_id(connection));
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, m_windows.back(), m_display.root(),
                          static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
                          static_cast<std::uint16_t>(area.width()), static_cast<std::uint16_t>(area.height()), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
        xcb_map_window(connection, m_windows.back());
        m_display.synchronize();
        // The nearest colour that the server has.
        const auto shown = [](std::uint16_t value) { return (value + 128) / 257; };
        QPainter(&m_expected).fillRect(area, QColor(shown(pixel->red), shown(pixel->green), shown(pixel->blue)));
    }

    const QImage& expected() const { return m_expected; }

private:
    const XDisplay& m_display;
    std::vector<xcb_window_t> m_windows;
    QImage m_expected;
};

} // namespace zelmo::test
