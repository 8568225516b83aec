#include "platform/linux/x11/RootStrips.h"

#include "platform/linux/x11/SharedPixels.h"
#include "platform/linux/x11/XcbReply.h"

#include <array>
#include <deque>
#include <sys/socket.h>
#include <xcb/shm.h>

namespace zelmo {

namespace {

constexpr std::uint32_t allPlanes = ~0U;

// A strip in the numbers that the server takes.
struct Part {
    explicit Part(const QRect& strip)
        : x(static_cast<std::int16_t>(strip.x())), y(static_cast<std::int16_t>(strip.y())),
          width(static_cast<std::uint16_t>(strip.width())), height(static_cast<std::uint16_t>(strip.height())) {}

    std::int16_t x;
    std::int16_t y;
    std::uint16_t width;
    std::uint16_t height;
};

// The requests that have no answer yet. What is still underway at the end is dropped when it comes.
template <typename Cookie>
class Underway {
public:
    explicit Underway(xcb_connection_t* connection) : m_connection(connection) {}
    ~Underway() {
        for (const Cookie& cookie : m_cookies)
            xcb_discard_reply(m_connection, cookie.sequence);
    }
    Underway(const Underway&) = delete;
    Underway& operator=(const Underway&) = delete;

    void add(Cookie cookie) {
        m_cookies.push_back(cookie);
        xcb_flush(m_connection);
    }
    Cookie first() {
        const Cookie cookie = m_cookies.front();
        m_cookies.pop_front();
        return cookie;
    }

private:
    xcb_connection_t* m_connection;
    std::deque<Cookie> m_cookies;
};

class SharedStrips : public RootStrips {
public:
    SharedStrips(xcb_connection_t* connection, xcb_window_t root, std::unique_ptr<SharedPixels> pixels,
                 xcb_shm_seg_t segment, std::size_t stripSize)
        : m_connection(connection), m_root(root), m_pixels(std::move(pixels)), m_segment(segment),
          m_stripSize(stripSize), m_underway(connection) {}
    ~SharedStrips() override {
        // Without a look at the answer, which would be an error's only if the server had forgotten the memory.
        xcb_discard_reply(m_connection, xcb_shm_detach_checked(m_connection, m_segment).sequence);
        xcb_flush(m_connection);
    }

    void ask(const QRect& strip) override {
        const Part part(strip);
        m_underway.add(xcb_shm_get_image(m_connection, m_root, part.x, part.y, part.width, part.height, allPlanes,
                                         XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment,
                                         static_cast<std::uint32_t>(m_asked++ % 2 * m_stripSize)));
    }

    const std::uint8_t* take(std::size_t size) override {
        const XcbReply<xcb_shm_get_image_reply_t> answer(
            xcb_shm_get_image_reply(m_connection, m_underway.first(), nullptr));
        if (!answer || size > m_stripSize || answer->size < size)
            return nullptr;
        return m_pixels->bytes() + m_taken++ % 2 * m_stripSize;
    }

private:
    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    std::unique_ptr<SharedPixels> m_pixels;
    xcb_shm_seg_t m_segment;
    std::size_t m_stripSize;
    std::size_t m_asked = 0;
    std::size_t m_taken = 0;
    Underway<xcb_shm_get_image_cookie_t> m_underway;
};

class ReceivedStrips : public RootStrips {
public:
    ReceivedStrips(xcb_connection_t* connection, xcb_window_t root)
        : m_connection(connection), m_root(root), m_underway(connection) {}

    void ask(const QRect& strip) override {
        const Part part(strip);
        m_underway.add(xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, part.x, part.y, part.width,
                                     part.height, allPlanes));
    }

    const std::uint8_t* take(std::size_t size) override {
        m_answer.reset(xcb_get_image_reply(m_connection, m_underway.first(), nullptr));
        if (!m_answer || static_cast<std::size_t>(xcb_get_image_data_length(m_answer.get())) < size)
            return nullptr;
        return xcb_get_image_data(m_answer.get());
    }

private:
    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    XcbReply<xcb_get_image_reply_t> m_answer;
    Underway<xcb_get_image_cookie_t> m_underway;
};

// The memory goes over as an open file, which only a socket of this machine can carry. A server that is elsewhere all
// the same, behind a relay, gets no file and refuses; a number for the memory instead might mean another one there.
bool mayShareMemory(xcb_connection_t* connection) {
    int domain = 0;
    socklen_t length = sizeof domain;
    if (getsockopt(xcb_get_file_descriptor(connection), SOL_SOCKET, SO_DOMAIN, &domain, &length) != 0 ||
        domain != AF_UNIX)
        return false;
    // A request of an extension that the server lacks would end the connection.
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_shm_id);
    if (!extension || !extension->present)
        return false;
    const XcbReply<xcb_shm_query_version_reply_t> version(
        xcb_shm_query_version_reply(connection, xcb_shm_query_version(connection), nullptr));
    return version && (version->major_version > 1 || (version->major_version == 1 && version->minor_version >= 2));
}

} // namespace

std::unique_ptr<RootStrips> shareRootStrips(xcb_connection_t* connection, xcb_window_t root, std::size_t stripSize) {
    if (!mayShareMemory(connection))
        return nullptr;
    auto pixels = SharedPixels::create(2 * stripSize);
    const int descriptor = pixels ? pixels->duplicateDescriptor() : -1;
    if (descriptor < 0)
        return nullptr;
    const xcb_shm_seg_t segment = xcb_generate_id(connection);
    const XcbReply<xcb_generic_error_t> refusal(
        xcb_request_check(connection, xcb_shm_attach_fd_checked(connection, segment, descriptor, 0)));
    if (refusal)
        return nullptr;
    return std::make_unique<SharedStrips>(connection, root, std::move(pixels), segment, stripSize);
}

std::unique_ptr<RootStrips> receiveRootStrips(xcb_connection_t* connection, xcb_window_t root) {
    return std::make_unique<ReceivedStrips>(connection, root);
}

} // namespace zelmo
