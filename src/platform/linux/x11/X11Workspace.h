#pragma once

#include "catalog/Workspace.h"
#include "platform/linux/x11/X11Connection.h"

namespace zelmo {

class ApplicationIdentifier;
struct WindowFacts;

// Finds the application in front from the window manager's `_NET_ACTIVE_WINDOW`, and follows it. Without a window
// manager it knows the window that has the keyboard, which is enough to give the keyboard back, but names no
// application: nobody says then that the window is one that the user chose. Main thread.
class X11Workspace : public QObject, public Workspace {
    Q_OBJECT

public:
    // Both outlive it; without a connection nothing is ever in front.
    X11Workspace(X11Connection* connection, const ApplicationIdentifier& identifier);

    std::optional<RunningApplication> frontmostApplication() const override;
    void setActivationHandler(ActivationHandler handler) override;
    void activate(const RunningApplication& application) override;

    // While the user is away no application counts as being in front for the activation handler.
    void setUserPresent(bool isPresent);

private:
    enum class Presence { present, away };

    void noteEvent(const xcb_generic_event_t& event);
    void watchWindowManager();
    // Tells the handler when what is in front has changed since it was told last.
    void announce();

    bool hasWindowManager() const;
    std::optional<xcb_window_t> activeWindow() const;
    std::optional<xcb_window_t> windowWithKeyboard() const;
    std::int64_t processOf(xcb_window_t window) const;
    WindowFacts factsOf(xcb_window_t window) const;
    std::optional<xcb_window_t> windowToActivate(const RunningApplication& application) const;
    void giveKeyboard(xcb_window_t window);

    // Of the same window of the same process the application stays the same, and asking costs a look at the process.
    struct Identity {
        xcb_window_t window = XCB_WINDOW_NONE;
        std::int64_t process = 0;
        std::optional<FileUrl> application;
    };

    std::optional<FileUrl> applicationOf(xcb_window_t window, std::int64_t process) const;
    bool isOpen(xcb_window_t window) const;

    X11Connection* m_connection;
    mutable Identity m_lastIdentity;
    const ApplicationIdentifier& m_identifier;
    ActivationHandler m_handler;
    // Nothing before the first time.
    std::optional<std::optional<RunningApplication>> m_announced;
    Presence m_presence = Presence::present;
    xcb_window_t m_windowManagerWindow = XCB_WINDOW_NONE; // the one that stands for it
};

} // namespace zelmo
