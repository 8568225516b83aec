#include "platform/linux/x11/X11Connection.h"

#include <QAbstractEventDispatcher>

#include <array>

namespace zelmo {

namespace {

constexpr std::uint8_t sentByClient = 0x80;

xcb_screen_t* screenOf(xcb_connection_t* connection, int number) {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.data;
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::open(const QByteArray& display) {
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(display.isEmpty() ? nullptr : display.constData(), &screenNumber);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screenNumber));
}

X11Connection::X11Connection(xcb_connection_t* connection, int screenNumber)
    : m_connection(connection), m_screenNumber(screenNumber),
      m_notifier(xcb_get_file_descriptor(connection), QSocketNotifier::Read) {
    const xcb_screen_t* screen = screenOf(connection, screenNumber);
    m_root = screen->root;
    m_clockWindow = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, m_clockWindow, m_root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    connect(&m_notifier, &QSocketNotifier::activated, this, &X11Connection::handOut);
    // An answer that was waited for may have brought events along, of which the socket then says nothing.
    if (auto* dispatcher = QAbstractEventDispatcher::instance())
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &X11Connection::handOut);
}

X11Connection::~X11Connection() {
    m_notifier.setEnabled(false);
    xcb_disconnect(m_connection);
}

xcb_atom_t X11Connection::atom(const QByteArray& name) const {
    const auto known = m_atoms.constFind(name);
    if (known != m_atoms.constEnd())
        return *known;
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.constData()),
        nullptr));
    if (!reply)
        return XCB_ATOM_NONE;
    m_atoms.insert(name, reply->atom);
    return reply->atom;
}

QByteArray X11Connection::property(xcb_window_t window, const QByteArray& name, int bits, std::uint32_t longest) const {
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, (longest + 3) / 4),
        nullptr));
    if (!reply || reply->format != bits)
        return {};
    return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

QList<std::uint32_t> X11Connection::numbers(xcb_window_t window, const QByteArray& name) const {
    constexpr std::uint32_t manyNumbers = 64 * 1024;
    const QByteArray bytes = property(window, name, 32, manyNumbers);
    QList<std::uint32_t> list(bytes.size() / static_cast<qsizetype>(sizeof(std::uint32_t)));
    // Without numbers there is no place for them either.
    if (list.isEmpty())
        return list;
    std::memcpy(list.data(), bytes.constData(), static_cast<std::size_t>(list.size()) * sizeof(std::uint32_t));
    return list;
}

xcb_timestamp_t X11Connection::serverTime() {
    const xcb_atom_t property = atom(QByteArrayLiteral("_ZELMO_CLOCK"));
    xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_clockWindow, property, XCB_ATOM_CARDINAL, 32, 0, nullptr);
    xcb_flush(m_connection);
    // What came before and with the answer. An event loop that only looks by now and then never blocks.
    QMetaObject::invokeMethod(this, &X11Connection::handOut, Qt::QueuedConnection);
    for (;;) {
        XcbEvent event(xcb_wait_for_event(m_connection));
        if (!event)
            return XCB_CURRENT_TIME;
        if ((event->response_type & ~sentByClient) == XCB_PROPERTY_NOTIFY) {
            const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
            if (change->window == m_clockWindow)
                return change->time;
        }
        m_waiting.push_back(std::move(event));
    }
}

void X11Connection::sendToWindowManager(xcb_window_t window, const QByteArray& type,
                                        const std::array<std::uint32_t, 5>& data) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(type);
    std::copy(data.begin(), data.end(), message.data.data32);
    xcb_send_event(m_connection, 0, m_root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(m_connection);
}

void X11Connection::handOut() {
    for (;;) {
        XcbEvent event;
        if (!m_waiting.empty()) {
            event = std::move(m_waiting.front());
            m_waiting.pop_front();
        } else {
            event.reset(xcb_poll_for_event(m_connection));
        }
        if (!event)
            break;
        Q_EMIT arrived(*event);
    }
    // A server that has gone leaves its socket readable for ever.
    if (xcb_connection_has_error(m_connection))
        m_notifier.setEnabled(false);
}

} // namespace zelmo
