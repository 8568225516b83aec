#pragma once

#include "platform/linux/x11/XcbReply.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSocketNotifier>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace zelmo {

using XcbEvent = XcbReply<xcb_generic_event_t>;

// A connection to the X server apart from the one that the windows use, for a service that asks and watches the
// desktop: its events reach nobody else, and it works in programs without windows. Owned by the service's user;
// lives on the main thread, where events are handed out from the event loop. A server that goes away makes
// everything here do nothing.
class X11Connection : public QObject {
    Q_OBJECT

public:
    // `display` as in DISPLAY, empty for that variable's value. Null when there is no such server.
    static std::unique_ptr<X11Connection> open(const QByteArray& display = {});
    ~X11Connection() override;

    xcb_connection_t* get() const { return m_connection; }
    xcb_window_t root() const { return m_root; }
    int screenNumber() const { return m_screenNumber; }

    // The number of a name, made when the server has none yet.
    xcb_atom_t atom(const QByteArray& name) const;

    // At most `longest` bytes of a property; empty when the window or the property does not exist, or holds
    // elements of another size. `bits` is the size of an element.
    QByteArray property(xcb_window_t window, const QByteArray& name, int bits, std::uint32_t longest = 4096) const;
    // The values of a property of windows or cardinal numbers.
    QList<std::uint32_t> numbers(xcb_window_t window, const QByteArray& name) const;

    // The server's own time just now, which messages to window managers carry. 0 when there is no server any more.
    xcb_timestamp_t serverTime();

    // Sends a message about a window to the window manager, by way of the root.
    void sendToWindowManager(xcb_window_t window, const QByteArray& type, const std::array<std::uint32_t, 5>& data);

    // Sends what waits to be sent. Never waits for the server.
    void flush() const { xcb_flush(m_connection); }

Q_SIGNALS:
    void arrived(const xcb_generic_event_t& event);

private:
    X11Connection(xcb_connection_t* connection, int screenNumber);

    void handOut();

    xcb_connection_t* m_connection;
    int m_screenNumber;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    xcb_window_t m_clockWindow = XCB_WINDOW_NONE; // never seen; a change of it makes the server tell its time
    mutable QHash<QByteArray, xcb_atom_t> m_atoms;
    std::deque<XcbEvent> m_waiting; // came while an answer was waited for
    QSocketNotifier m_notifier;
};

} // namespace zelmo
