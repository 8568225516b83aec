#pragma once

#include "platform/linux/session/BusAddresses.h"

#include <QObject>

#include <functional>
#include <memory>

class QThread;

namespace zelmo {

class PresenceListener;

// Tells whether a person can be in front of this session: not while the screen is locked or saved, another session is
// in front, or the machine goes to sleep. What no service tells counts as presence. Owned by the application; main
// thread. It waits for nothing: all talk with the buses has a thread of its own.
class DBusSessionPresence {
public:
    explicit DBusSessionPresence(BusAddresses addresses = BusAddresses::fromEnvironment());
    ~DBusSessionPresence();
    DBusSessionPresence(const DBusSessionPresence&) = delete;
    DBusSessionPresence& operator=(const DBusSessionPresence&) = delete;

    // Connects to the buses in the background; until then the person counts as present.
    void start();

    bool isPresent() const { return m_present; }
    // Called on the main thread after each change of `isPresent()`.
    void setChangeHandler(std::function<void()> handler) { m_handler = std::move(handler); }

private:
    void take(bool present);

    BusAddresses m_addresses;
    std::function<void()> m_handler;
    bool m_present = true;
    std::unique_ptr<QObject> m_receiver; // what the thread's messages reach this object through
    std::unique_ptr<QThread> m_thread;
};

} // namespace zelmo
