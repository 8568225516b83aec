#include "platform/linux/x11/X11KeyboardBuffer.h"

#include "platform/linux/x11/QtX11Connection.h"
#include "platform/linux/x11/XcbReply.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QWindow>

namespace zelmo {

namespace {

constexpr std::uint8_t sentByClient = 0x80;

} // namespace

X11KeyboardBuffer::X11KeyboardBuffer() {
    if (const auto x11 = QtX11Connection::current()) {
        m_connection = x11->connection;
        m_root = x11->root;
    }
    m_limit.setSingleShot(true);
    m_limit.setInterval(longestGrab);
    connect(&m_limit, &QTimer::timeout, this, &X11KeyboardBuffer::ungrab);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &X11KeyboardBuffer::watchFocus);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11KeyboardBuffer::~X11KeyboardBuffer() {
    X11KeyboardBuffer::cancel();
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

void X11KeyboardBuffer::begin() {
    if (!m_connection || m_state != State::idle)
        return;
    const XcbReply<xcb_grab_keyboard_reply_t> grab(xcb_grab_keyboard_reply(
        m_connection,
        xcb_grab_keyboard(m_connection, 0, m_root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr));
    if (!grab || grab->status != XCB_GRAB_STATUS_SUCCESS)
        return;
    m_state = State::keeping;
    m_limit.start();
}

void X11KeyboardBuffer::deliverTo(QWindow& window) {
    m_window = &window;
    watchFocus();
}

void X11KeyboardBuffer::cancel() {
    m_limit.stop();
    m_kept.clear();
    m_underway = 0;
    if (m_state != State::idle)
        ungrab();
    m_window = nullptr;
}

void X11KeyboardBuffer::watchFocus() {
    const bool hasWork = m_state == State::keeping || (m_state == State::idle && !m_kept.empty());
    if (hasWork && windowHasFocus())
        replay();
}

// For Qt and for the server. Each may be behind: Qt takes a window that has just gone for the one with the focus for
// a while, and has to hear of a new focus before it passes keys on.
bool X11KeyboardBuffer::windowHasFocus() const {
    if (!m_window || QGuiApplication::focusWindow() != m_window)
        return false;
    const XcbReply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return focus && focus->focus == m_window->winId();
}

// Sends the kept keys on. Keys that are typed meanwhile are still kept, so that they do not overtake
// those on their way; the grab ends when none is left.
void X11KeyboardBuffer::replay() {
    m_limit.stop();
    if (m_kept.empty()) {
        ungrab();
        return;
    }
    m_state = State::replaying;
    const auto window = static_cast<xcb_window_t>(m_window->winId());
    for (xcb_key_press_event_t& event : m_kept) {
        event.event = window;
        const std::uint32_t mask =
            event.response_type == XCB_KEY_PRESS ? XCB_EVENT_MASK_KEY_PRESS : XCB_EVENT_MASK_KEY_RELEASE;
        xcb_send_event(m_connection, 0, window, mask, reinterpret_cast<const char*>(&event));
    }
    xcb_flush(m_connection);
    m_underway = m_kept.size();
    m_kept.clear();
}

void X11KeyboardBuffer::ungrab() {
    m_state = State::idle;
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    xcb_flush(m_connection);
}

bool X11KeyboardBuffer::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t")
        return false;
    auto* event = static_cast<xcb_key_press_event_t*>(message);
    const std::uint8_t type = event->response_type & static_cast<std::uint8_t>(~sentByClient);
    // Qt says nothing when the focus comes back to the window that it takes for its owner still.
    if (type == XCB_FOCUS_IN && m_window)
        QMetaObject::invokeMethod(this, &X11KeyboardBuffer::watchFocus, Qt::QueuedConnection);
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return false;

    if (event->response_type & sentByClient) {
        if (m_state == State::replaying && --m_underway == 0)
            QMetaObject::invokeMethod(
                this, [this] { replay(); }, Qt::QueuedConnection);
        return false;
    }
    if (event->event != m_root || (m_state == State::idle && !m_window))
        return false;
    if (m_state == State::idle && m_kept.empty() && QGuiApplication::focusWindow() == m_window) {
        // Typed just before the grab ended: the window is its receiver all the same.
        event->event = static_cast<xcb_window_t>(m_window->winId());
        return false;
    }
    m_kept.push_back(*event);
    return true;
}

} // namespace zelmo
