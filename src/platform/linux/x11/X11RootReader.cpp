#include "platform/linux/x11/X11RootReader.h"

#include "platform/linux/x11/SharedPixels.h"
#include "platform/linux/x11/XcbReply.h"

#include <sys/socket.h>
#include <xcb/shm.h>

namespace zelmo {

namespace {

constexpr std::uint32_t allPlanes = ~0U;
// Of one answer through the connection, so that a slow one is noticed before all of the screen is underway.
constexpr std::size_t stripBytes = 256UL * 1024;

const xcb_screen_t* screenOf(const xcb_setup_t& setup, xcb_window_t root) {
    for (auto screens = xcb_setup_roots_iterator(&setup); screens.rem > 0; xcb_screen_next(&screens)) {
        if (screens.data->root == root)
            return screens.data;
    }
    return nullptr;
}

// A request with a part of the root, in the numbers that the server takes.
struct Part {
    explicit Part(const QRect& rectangle)
        : x(static_cast<std::int16_t>(rectangle.x())), y(static_cast<std::int16_t>(rectangle.y())),
          width(static_cast<std::uint16_t>(rectangle.width())), height(static_cast<std::uint16_t>(rectangle.height())) {
    }

    std::int16_t x;
    std::int16_t y;
    std::uint16_t width;
    std::uint16_t height;
};

bool isExpressible(const QRect& part) {
    constexpr int limit = INT16_MAX;
    return !part.isEmpty() && part.left() >= -limit && part.top() >= -limit && part.right() <= limit &&
           part.bottom() <= limit && part.width() <= limit && part.height() <= limit;
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

QImage X11RootReader::picture(const QRect& part) const {
    if (!m_layout || !isExpressible(part))
        return {};
    if (QImage picture = throughSharedMemory(part); !picture.isNull())
        return picture;
    return throughConnection(part);
}

QImage X11RootReader::throughSharedMemory(const QRect& part) const {
    if (!sharesMemory())
        return {};
    const std::size_t step = m_layout->bytesPerLine(part.width());
    auto pixels = SharedPixels::create(step * static_cast<std::size_t>(part.height()));
    const int descriptor = pixels ? pixels->duplicateDescriptor() : -1;
    if (descriptor < 0)
        return {};
    const xcb_shm_seg_t segment = xcb_generate_id(m_connection);
    const auto attaching = xcb_shm_attach_fd_checked(m_connection, segment, descriptor, 0);
    const Part place(part);
    const auto asking = xcb_shm_get_image(m_connection, m_root, place.x, place.y, place.width, place.height, allPlanes,
                                          XCB_IMAGE_FORMAT_Z_PIXMAP, segment, 0);
    const XcbReply<xcb_shm_get_image_reply_t> answer(xcb_shm_get_image_reply(m_connection, asking, nullptr));
    if (const XcbReply<xcb_generic_error_t> refusal{xcb_request_check(m_connection, attaching)}; refusal)
        return {};
    xcb_shm_detach(m_connection, segment);
    xcb_flush(m_connection);
    if (!answer)
        return {};
    if (m_layout->isRgb32()) {
        // A part of the memory would be gone as soon as the picture is changed or copied, so it is made right in place.
        std::uint8_t* bytes = pixels->bytes();
        QImage picture = std::move(pixels).value().intoPicture(part.size(), step);
        m_layout->convert(bytes, part.height(), picture, 0);
        return picture;
    }
    QImage picture(part.size(), QImage::Format_RGB32);
    if (!picture.isNull())
        m_layout->convert(pixels->bytes(), part.height(), picture, 0);
    return picture;
}

QImage X11RootReader::throughConnection(const QRect& part) const {
    QImage picture(part.size(), QImage::Format_RGB32);
    if (picture.isNull())
        return {};
    const std::size_t step = m_layout->bytesPerLine(part.width());
    const int rowsAtOnce = static_cast<int>(std::max<std::size_t>(1, stripBytes / step));
    const auto end = std::chrono::steady_clock::now() + m_patience;
    for (int top = 0; top < part.height(); top += rowsAtOnce) {
        if (std::chrono::steady_clock::now() > end)
            return {};
        const Part strip(QRect(part.x(), part.y() + top, part.width(), std::min(rowsAtOnce, part.height() - top)));
        const auto asking = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, strip.x, strip.y,
                                          strip.width, strip.height, allPlanes);
        const XcbReply<xcb_get_image_reply_t> answer(xcb_get_image_reply(m_connection, asking, nullptr));
        if (!answer || static_cast<std::size_t>(xcb_get_image_data_length(answer.get())) < step * strip.height)
            return {};
        m_layout->convert(xcb_get_image_data(answer.get()), strip.height, picture, top);
    }
    return picture;
}

// The memory goes over as an open file, which only a socket of this machine can carry. A server that is elsewhere all
// the same, behind a relay, gets no file and refuses; a number for the memory instead might mean another one there.
bool X11RootReader::sharesMemory() const {
    int domain = 0;
    socklen_t length = sizeof domain;
    if (getsockopt(xcb_get_file_descriptor(m_connection), SOL_SOCKET, SO_DOMAIN, &domain, &length) != 0 ||
        domain != AF_UNIX)
        return false;
    // A request of an extension that the server lacks would end the connection.
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(m_connection, &xcb_shm_id);
    if (!extension || !extension->present)
        return false;
    const XcbReply<xcb_shm_query_version_reply_t> version(
        xcb_shm_query_version_reply(m_connection, xcb_shm_query_version(m_connection), nullptr));
    return version && (version->major_version > 1 || (version->major_version == 1 && version->minor_version >= 2));
}

} // namespace zelmo
