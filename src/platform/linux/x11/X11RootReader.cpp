#include "platform/linux/x11/X11RootReader.h"

#include "platform/linux/x11/RootStrips.h"
#include "platform/linux/x11/XcbReply.h"

namespace zelmo {

namespace {

// Small enough to stay in the processor's cache between the server and this program, for which reason strips take a
// fourth of the time of the whole screen at once; and a slow connection is noticed after one of them.
constexpr std::size_t stripBytes = 256UL * 1024;

const xcb_screen_t* screenOf(const xcb_setup_t& setup, xcb_window_t root) {
    for (auto screens = xcb_setup_roots_iterator(&setup); screens.rem > 0; xcb_screen_next(&screens)) {
        if (screens.data->root == root)
            return screens.data;
    }
    return nullptr;
}

// In the numbers of a request.
bool isExpressible(const QRect& part) {
    constexpr QRect all(QPoint(INT16_MIN, INT16_MIN), QPoint(INT16_MAX, INT16_MAX));
    return !part.isEmpty() && all.contains(part);
}

} // namespace

X11RootReader::X11RootReader(xcb_connection_t* connection, xcb_window_t root, std::chrono::milliseconds patience)
    : m_connection(connection), m_root(root), m_patience(patience) {
    const xcb_setup_t* setup = xcb_get_setup(connection);
    if (const xcb_screen_t* screen = setup ? screenOf(*setup, root) : nullptr)
        m_layout = X11PixelLayout::ofRoot(*setup, *screen);
}

std::optional<QRect> X11RootReader::area() const {
    // What the server said when the program connected is from before the screens changed.
    const XcbReply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, m_root), nullptr));
    if (!geometry)
        return std::nullopt;
    return QRect(0, 0, geometry->width, geometry->height);
}

bool X11RootReader::read(const QRect& part, const DesktopCapture::TakeRows& take) const {
    if (!m_layout || !isExpressible(part))
        return false;
    const std::size_t step = m_layout->bytesPerLine(part.width());
    const std::size_t rowsAtOnce = std::max<std::size_t>(1, stripBytes / step);
    auto strips = shareRootStrips(m_connection, m_root, rowsAtOnce * step);
    if (!strips)
        strips = receiveRootStrips(m_connection, m_root);
    return read(part, *strips, static_cast<int>(rowsAtOnce), take);
}

bool X11RootReader::read(const QRect& part, RootStrips& strips, int rowsAtOnce,
                         const DesktopCapture::TakeRows& take) const {
    const auto end = std::chrono::steady_clock::now() + m_patience;
    const std::size_t step = m_layout->bytesPerLine(part.width());
    const auto rowsFrom = [&](int top) { return std::min(rowsAtOnce, part.height() - top); };
    const auto askFrom = [&](int top) {
        if (top < part.height())
            strips.ask(QRect(part.x(), part.y() + top, part.width(), rowsFrom(top)));
    };
    QImage strip;
    askFrom(0);
    for (int top = 0; top < part.height(); top += rowsAtOnce) {
        askFrom(top + rowsAtOnce);
        const int rows = rowsFrom(top);
        const std::uint8_t* pixels = strips.take(step * static_cast<std::size_t>(rows));
        if (!pixels || std::chrono::steady_clock::now() > end)
            return false;
        if (strip.height() != rows)
            strip = QImage(part.width(), rows, QImage::Format_RGB32);
        if (strip.isNull())
            return false;
        m_layout->convert(pixels, strip);
        take(strip, part.size());
    }
    return true;
}

} // namespace zelmo
