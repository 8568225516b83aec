#include "support/XDisplay.h"

#include <QElapsedTimer>
#include <QThread>

#include <cstdlib>
#include <cstring>
#include <vector>
#include <xcb/xcbext.h>
#include <xcb/xtest.h>

namespace zelmo::test {

namespace {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, FreeDeleter>;

constexpr xcb_keysym_t shiftKey = 0xffe1;

xcb_atom_t atomNamed(xcb_connection_t* connection, const QByteArray& name) {
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QString titleOf(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property) {
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, window, property, XCB_ATOM_ANY, 0, 256), nullptr));
    if (!reply)
        return {};
    return QString::fromUtf8(static_cast<const char*>(xcb_get_property_value(reply.get())),
                             xcb_get_property_value_length(reply.get()));
}

} // namespace

std::unique_ptr<XDisplay> XDisplay::open(const QString& name) {
    xcb_connection_t* connection = xcb_connect(name.toLatin1().constData(), nullptr);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<XDisplay>(new XDisplay(connection));
}

XDisplay::XDisplay(xcb_connection_t* connection)
    : m_connection(connection), m_screen(xcb_setup_roots_iterator(xcb_get_setup(connection)).data) {}

XDisplay::~XDisplay() {
    xcb_disconnect(m_connection);
}

QSize XDisplay::size() const {
    const auto screen = geometry(root());
    return screen ? screen->size() : QSize();
}

std::optional<xcb_window_t> XDisplay::viewableWindow(const QString& title) const {
    const xcb_atom_t name = atomNamed(m_connection, "_NET_WM_NAME");
    std::vector<xcb_window_t> pending{root()};
    while (!pending.empty()) {
        const xcb_window_t window = pending.back();
        pending.pop_back();
        const auto attributesCookie = xcb_get_window_attributes(m_connection, window);
        const auto treeCookie = xcb_query_tree(m_connection, window);
        const Owned<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(m_connection, attributesCookie, nullptr));
        const Owned<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(m_connection, treeCookie, nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
            (titleOf(m_connection, window, name) == title || titleOf(m_connection, window, XCB_ATOM_WM_NAME) == title))
            return window;
        if (tree) {
            const xcb_window_t* children = xcb_query_tree_children(tree.get());
            pending.insert(pending.end(), children, children + xcb_query_tree_children_length(tree.get()));
        }
    }
    return std::nullopt;
}

std::optional<QRect> XDisplay::geometry(xcb_window_t window) const {
    const auto geometryCookie = xcb_get_geometry(m_connection, window);
    const auto originCookie = xcb_translate_coordinates(m_connection, window, root(), 0, 0);
    const Owned<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(m_connection, geometryCookie, nullptr));
    const Owned<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(m_connection, originCookie, nullptr));
    if (!reply || !origin)
        return std::nullopt;
    return QRect(origin->dst_x, origin->dst_y, reply->width, reply->height);
}

xcb_window_t XDisplay::focusedWindow() const {
    const Owned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

bool XDisplay::hasOwner(const QByteArray& selection) const {
    const Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, atomNamed(m_connection, selection)), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

// By a window that is not shown, which the server gives nothing and tells so only when nobody else has the keyboard: to
// have it for a moment would keep it from the program that is waited for.
bool XDisplay::keyboardIsGrabbed() const {
    const xcb_window_t hidden = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, hidden, root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    const Owned<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
        m_connection,
        xcb_grab_keyboard(m_connection, 1, hidden, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr));
    xcb_destroy_window(m_connection, hidden);
    return !reply || reply->status != XCB_GRAB_STATUS_NOT_VIEWABLE;
}

void XDisplay::sendKey(xcb_keycode_t code, bool press) const {
    xcb_test_fake_input(m_connection, press ? XCB_KEY_PRESS : XCB_KEY_RELEASE, code, XCB_CURRENT_TIME, root(), 0, 0, 0);
}

bool XDisplay::typeKey(xcb_keysym_t symbol) const {
    if (const xcb_keycode_t plain = keyFor(symbol, 0)) {
        sendKey(plain, true);
        sendKey(plain, false);
    } else if (const xcb_keycode_t shifted = keyFor(symbol, 1)) {
        const xcb_keycode_t shift = keyFor(shiftKey, 0);
        sendKey(shift, true);
        sendKey(shifted, true);
        sendKey(shifted, false);
        sendKey(shift, false);
    } else {
        return false;
    }
    synchronize();
    return true;
}

std::optional<xcb_window_t> XDisplay::activeWindow() const {
    const QByteArray value = property(root(), "_NET_ACTIVE_WINDOW");
    xcb_window_t window = XCB_WINDOW_NONE;
    // Some window managers add a second number, which means nothing.
    if (value.size() >= static_cast<qsizetype>(sizeof window))
        std::memcpy(&window, value.constData(), sizeof window);
    return window == XCB_WINDOW_NONE ? std::nullopt : std::optional(window);
}

QString XDisplay::activeClass() const {
    const auto window = activeWindow();
    return window ? QString::fromLatin1(property(*window, "WM_CLASS").split('\0').value(1)) : QString();
}

void XDisplay::activate(xcb_window_t window) const {
    sendToWindowManager(window, "_NET_ACTIVE_WINDOW", 2);
}

void XDisplay::close(xcb_window_t window) const {
    sendToWindowManager(window, "_NET_CLOSE_WINDOW", XCB_CURRENT_TIME);
}

void XDisplay::showWorkspace(std::uint32_t number) const {
    sendToWindowManager(root(), "_NET_CURRENT_DESKTOP", number);
}

std::optional<std::uint32_t> XDisplay::shownWorkspace() const {
    const QByteArray value = property(root(), "_NET_CURRENT_DESKTOP");
    if (value.size() < 4)
        return std::nullopt;
    std::uint32_t number = 0;
    std::memcpy(&number, value.constData(), sizeof number);
    return number;
}

void XDisplay::sendToWindowManager(xcb_window_t window, const QByteArray& type, std::uint32_t first) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atomNamed(m_connection, type);
    message.data.data32[0] = first;
    xcb_send_event(m_connection, 0, root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    synchronize();
}

void XDisplay::watchActivationRequests() const {
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, root(), XCB_CW_EVENT_MASK, &events);
    synchronize();
}

QList<xcb_window_t> XDisplay::activationRequests() const {
    QList<xcb_window_t> windows;
    const xcb_atom_t wanted = atomNamed(m_connection, "_NET_ACTIVE_WINDOW");
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE)
            continue;
        const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event.get());
        if (message->type == wanted)
            windows.append(message->window);
    }
    return windows;
}

QByteArray XDisplay::property(xcb_window_t window, const QByteArray& name) const {
    const Owned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection,
                               xcb_get_property(m_connection, 0, window, atomNamed(m_connection, name),
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, 1U << 18U),
                               nullptr));
    return reply ? QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()))
                 : QByteArray();
}

bool XDisplay::holdKey(xcb_keysym_t symbol) const {
    const xcb_keycode_t key = keyFor(symbol, 0);
    sendKey(key, true);
    synchronize();
    return key != 0;
}

bool XDisplay::releaseKey(xcb_keysym_t symbol) const {
    const xcb_keycode_t key = keyFor(symbol, 0);
    sendKey(key, false);
    synchronize();
    return key != 0;
}

xcb_keycode_t XDisplay::keyFor(xcb_keysym_t symbol, int level) const {
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const Owned<xcb_get_keyboard_mapping_reply_t> mapping(xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, setup->min_keycode, count), nullptr));
    if (!mapping)
        return 0;
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
    const int width = mapping->keysyms_per_keycode;
    for (int code = 0; code < count; ++code) {
        if (symbols[code * width + level] == symbol)
            return static_cast<xcb_keycode_t>(setup->min_keycode + code);
    }
    return 0;
}

bool XDisplay::typeText(const QString& text) const {
    // The symbols of Latin-1 characters are the characters' codes.
    return std::all_of(text.cbegin(), text.cend(), [this](QChar c) { return typeKey(c.unicode()); });
}

void XDisplay::movePointer(QPoint position) const {
    xcb_test_fake_input(m_connection, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, root(),
                        static_cast<std::int16_t>(position.x()), static_cast<std::int16_t>(position.y()), 0);
    synchronize();
}

void XDisplay::click(QPoint position, xcb_button_index_t button) const {
    movePointer(position);
    pressButton(button);
}

void XDisplay::wheelDown() const {
    pressButton(XCB_BUTTON_INDEX_5);
}

void XDisplay::holdButton() const {
    sendButton(XCB_BUTTON_INDEX_1, true);
}

void XDisplay::releaseButton() const {
    sendButton(XCB_BUTTON_INDEX_1, false);
}

void XDisplay::pressButton(std::uint8_t button) const {
    sendButton(button, true);
    sendButton(button, false);
}

void XDisplay::sendButton(std::uint8_t button, bool press) const {
    xcb_test_fake_input(m_connection, press ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, button, XCB_CURRENT_TIME, root(),
                        0, 0, 0);
    if (press)
        synchronize();
    else
        waitUntilReleased(button);
}

// A window manager may hold the pointer while it looks at a press, and the server keeps what follows. It loses some of
// that when another press is among it, which no person is quick enough for.
void XDisplay::waitUntilReleased(std::uint8_t button) const {
    const auto down = static_cast<std::uint16_t>(XCB_BUTTON_MASK_1 << (button - XCB_BUTTON_INDEX_1));
    QElapsedTimer time;
    time.start();
    while (!time.hasExpired(5000)) {
        const Owned<xcb_query_pointer_reply_t> pointer(
            xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, root()), nullptr));
        if (!pointer || (pointer->mask & down) == 0)
            return;
        QThread::msleep(1);
    }
}

bool XDisplay::serverAnswers() const {
    const auto cookie = xcb_get_input_focus(m_connection);
    xcb_flush(m_connection);
    QElapsedTimer time;
    time.start();
    while (!time.hasExpired(500)) {
        void* reply = nullptr;
        xcb_generic_error_t* error = nullptr;
        if (xcb_poll_for_reply(m_connection, cookie.sequence, &reply, &error)) {
            std::free(reply);
            std::free(error);
            return true;
        }
        QThread::msleep(1);
    }
    xcb_discard_reply(m_connection, cookie.sequence);
    return false;
}

void XDisplay::synchronize() const {
    focusedWindow();
}

QImage XDisplay::screenshot() const {
    const QSize area = size();
    const Owned<xcb_get_image_reply_t> reply(xcb_get_image_reply(
        m_connection,
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, root(), 0, 0, static_cast<std::uint16_t>(area.width()),
                      static_cast<std::uint16_t>(area.height()), ~0U),
        nullptr));
    if (!reply)
        return {};
    return QImage(xcb_get_image_data(reply.get()), area.width(), area.height(), QImage::Format_RGB32).copy();
}

} // namespace zelmo::test
