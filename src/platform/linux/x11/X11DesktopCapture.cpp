#include "platform/linux/x11/X11DesktopCapture.h"

#include "platform/linux/x11/QtX11Connection.h"
#include "platform/linux/x11/ScreenPixels.h"
#include "platform/linux/x11/X11RootReader.h"
#include "platform/linux/x11/XcbReply.h"

#include <QPainter>

#include <string_view>

namespace zelmo {

namespace {

// A size that went through points may come back so much larger that it reaches over the edge of the desktop.
QRect withoutRoundedEdge(QRect pixels, const QRect& root, double scale) {
    if (pixels.right() - root.right() < scale)
        pixels.setRight(std::min(pixels.right(), root.right()));
    if (pixels.bottom() - root.bottom() < scale)
        pixels.setBottom(std::min(pixels.bottom(), root.bottom()));
    return pixels;
}

// A server that is a guest of a Wayland compositor sees its own windows only; its root shows nothing. It says what it
// is, before version 23.1 in the names of its screens alone.
bool isGuest(xcb_connection_t* connection, const QScreen& screen) {
    constexpr std::string_view extension = "XWAYLAND";
    if (screen.name().startsWith(QLatin1StringView(extension.data())))
        return true;
    const XcbReply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
        connection, xcb_query_extension(connection, static_cast<std::uint16_t>(extension.size()), extension.data()),
        nullptr));
    return reply && reply->present;
}

} // namespace

bool X11DesktopCapture::read(const QScreen& screen, const TakeRows& take) {
    const auto x11 = QtX11Connection::current();
    if (!x11 || isGuest(x11->connection, screen))
        return false;
    const X11RootReader reader(x11->connection, x11->root, m_patience);
    const QRect root = reader.area().value_or(QRect());
    const QRect wanted = withoutRoundedEdge(pixelsOf(screen), root, screen.devicePixelRatio());
    const QRect seen = wanted & root;
    if (seen == wanted)
        return reader.read(seen, take);
    QImage whole(wanted.size(), QImage::Format_RGB32);
    if (whole.isNull())
        return false;
    whole.fill(Qt::black);
    QPoint place = seen.topLeft() - wanted.topLeft();
    const bool isWhole = reader.read(seen, [&](const QImage& rows, QSize) {
        QPainter(&whole).drawImage(place, rows);
        place.ry() += rows.height();
    });
    if (isWhole)
        take(whole, whole.size());
    return isWhole;
}

} // namespace zelmo
