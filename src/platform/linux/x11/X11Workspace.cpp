#include "platform/linux/x11/X11Workspace.h"

#include "platform/linux/identity/ApplicationIdentifier.h"

#include <QSysInfo>

#include <algorithm>
#include <xcb/res.h>

namespace zelmo {

namespace {

constexpr const char* activeWindowName = "_NET_ACTIVE_WINDOW";
constexpr const char* windowManagerName = "_NET_SUPPORTING_WM_CHECK";
constexpr std::uint8_t sentByClient = 0x80;
constexpr std::uint32_t sourceIsUser = 2; // the one of the EWMH that the user is behind

void watch(const X11Connection& connection, xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(connection.get(), window, XCB_CW_EVENT_MASK, &events);
}

// Another window of the same application is no other application.
bool isSameApplication(const std::optional<RunningApplication>& a, const std::optional<RunningApplication>& b) {
    return a && b ? a->processIdentifier == b->processIdentifier && a->bundleUrl == b->bundleUrl
                  : a.has_value() == b.has_value();
}

// Who is at the other end of the connection that made the window; 0 when the server can't tell.
std::int64_t connectedProcess(xcb_connection_t* connection, xcb_window_t window) {
    // A request of an extension that the server lacks would end the connection.
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_res_id);
    if (!extension || !extension->present)
        return 0;
    const xcb_res_client_id_spec_t wanted{.client = window, .mask = XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const XcbReply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(connection, xcb_res_query_client_ids(connection, 1, &wanted), nullptr));
    if (!reply)
        return 0;
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        if ((ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 &&
            xcb_res_client_id_value_value_length(ids.data) > 0)
            return *xcb_res_client_id_value_value(ids.data);
    }
    return 0;
}

} // namespace

X11Workspace::X11Workspace(X11Connection* connection, const ApplicationIdentifier& identifier)
    : m_connection(connection), m_identifier(identifier) {
    if (!m_connection)
        return;
    watch(*m_connection, m_connection->root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    watchWindowManager();
    connect(m_connection, &X11Connection::arrived, this, &X11Workspace::noteEvent);
    connect(&m_identifier, &ApplicationIdentifier::indexChanged, this, [this] {
        m_lastIdentity = {};
        announce();
    });
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() const {
    if (!m_connection)
        return std::nullopt;
    const bool isManaged = hasWindowManager();
    const auto window = isManaged ? activeWindow() : windowWithKeyboard();
    if (!window)
        return std::nullopt;
    RunningApplication application{.processIdentifier = processOf(*window), .bundleUrl = {}, .window = *window};
    if (isManaged && application.processIdentifier != 0)
        application.bundleUrl = applicationOf(*window, application.processIdentifier);
    return application;
}

void X11Workspace::setActivationHandler(ActivationHandler handler) {
    m_handler = std::move(handler);
    m_announced.reset();
}

void X11Workspace::activate(const RunningApplication& application) {
    if (!m_connection)
        return;
    const auto window = windowToActivate(application);
    if (!window)
        return;
    if (!hasWindowManager()) {
        giveKeyboard(*window);
        return;
    }
    m_connection->sendToWindowManager(*window, activeWindowName,
                                      {sourceIsUser, m_connection->serverTime(), XCB_WINDOW_NONE, 0, 0});
}

void X11Workspace::setUserPresent(bool isPresent) {
    m_presence = isPresent ? Presence::present : Presence::away;
    announce();
}

void X11Workspace::noteEvent(const xcb_generic_event_t& event) {
    const int type = event.response_type & ~sentByClient;
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window != m_connection->root())
            return;
        if (change.atom == m_connection->atom(windowManagerName))
            watchWindowManager();
        else if (change.atom != m_connection->atom(activeWindowName))
            return;
        announce();
    } else if (type == XCB_DESTROY_NOTIFY) {
        // The window manager has gone; what it said of the active window stays behind.
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == m_windowManagerWindow) {
            watchWindowManager();
            announce();
        }
    }
}

void X11Workspace::watchWindowManager() {
    const QList<std::uint32_t> windows = m_connection->numbers(m_connection->root(), windowManagerName);
    m_windowManagerWindow = windows.value(0, XCB_WINDOW_NONE);
    if (m_windowManagerWindow != XCB_WINDOW_NONE)
        watch(*m_connection, m_windowManagerWindow, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

void X11Workspace::announce() {
    if (!m_handler)
        return;
    auto frontmost = m_presence == Presence::present ? frontmostApplication() : std::nullopt;
    if (m_announced && isSameApplication(frontmost, *m_announced))
        return;
    m_announced = frontmost;
    m_handler(frontmost);
}

// The window that stands for a window manager says of itself that it does, so that a number which was left behind
// and now means something else is not taken for it.
bool X11Workspace::hasWindowManager() const {
    return m_windowManagerWindow != XCB_WINDOW_NONE &&
           m_connection->numbers(m_windowManagerWindow, windowManagerName) ==
               QList<std::uint32_t>{m_windowManagerWindow};
}

std::optional<xcb_window_t> X11Workspace::activeWindow() const {
    const QList<std::uint32_t> windows = m_connection->numbers(m_connection->root(), activeWindowName);
    if (windows.isEmpty() || windows.first() == XCB_WINDOW_NONE)
        return std::nullopt;
    return windows.first();
}

std::optional<xcb_window_t> X11Workspace::windowWithKeyboard() const {
    xcb_connection_t* connection = m_connection->get();
    const XcbReply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    if (!focus || focus->focus == XCB_INPUT_FOCUS_NONE || focus->focus == XCB_INPUT_FOCUS_POINTER_ROOT ||
        focus->focus == m_connection->root())
        return std::nullopt;
    return focus->focus;
}

std::int64_t X11Workspace::processOf(xcb_window_t window) const {
    // Of a window that was sent here from another machine, the process is none of this one's.
    const QByteArray machine =
        m_connection->property(window, QByteArrayLiteral("WM_CLIENT_MACHINE"), 8).split('\0').first();
    if (!machine.isEmpty() && machine != QSysInfo::machineHostName().toLocal8Bit())
        return 0;
    // What the window says may be missing, or be a number that only counts inside a sandbox.
    if (const std::int64_t process = connectedProcess(m_connection->get(), window); process != 0)
        return process;
    const QList<std::uint32_t> process = m_connection->numbers(window, QByteArrayLiteral("_NET_WM_PID"));
    return process.isEmpty() ? 0 : process.first();
}

WindowFacts X11Workspace::factsOf(xcb_window_t window) const {
    const QList<QByteArray> names = m_connection->property(window, QByteArrayLiteral("WM_CLASS"), 8).split('\0');
    return {.instanceName = names.value(0),
            .className = names.value(1),
            .applicationIds = {m_connection->property(window, QByteArrayLiteral("_GTK_APPLICATION_ID"), 8),
                               m_connection->property(window, QByteArrayLiteral("_KDE_NET_WM_DESKTOP_FILE"), 8)}};
}

std::optional<FileUrl> X11Workspace::applicationOf(xcb_window_t window, std::int64_t process) const {
    if (m_lastIdentity.window != window || m_lastIdentity.process != process)
        m_lastIdentity = {.window = window,
                          .process = process,
                          .application = m_identifier.identify(factsOf(window), ProcessFacts::read(process))};
    return m_lastIdentity.application;
}

// One that its program has only hidden is still there, but not among those that the window manager looks after.
bool X11Workspace::isOpen(xcb_window_t window) const {
    const QList<std::uint32_t> managed =
        m_connection->numbers(m_connection->root(), QByteArrayLiteral("_NET_CLIENT_LIST_STACKING"));
    if (!managed.isEmpty())
        return managed.contains(window);
    xcb_connection_t* connection = m_connection->get();
    return XcbReply<xcb_get_window_attributes_reply_t>(xcb_get_window_attributes_reply(
               connection, xcb_get_window_attributes(connection, window), nullptr)) != nullptr;
}

// The window that was in front, or else the application's uppermost one.
std::optional<xcb_window_t> X11Workspace::windowToActivate(const RunningApplication& application) const {
    const auto window = static_cast<xcb_window_t>(application.window);
    const auto belongsToIt = [&](xcb_window_t candidate) {
        return application.processIdentifier == 0 || processOf(candidate) == application.processIdentifier;
    };
    // The number of a window that was closed may be another program's by now.
    if (isOpen(window) && belongsToIt(window))
        return window;
    if (application.processIdentifier == 0)
        return std::nullopt;
    const QList<std::uint32_t> stack =
        m_connection->numbers(m_connection->root(), QByteArrayLiteral("_NET_CLIENT_LIST_STACKING"));
    const auto top = std::find_if(stack.crbegin(), stack.crend(), belongsToIt);
    return top == stack.crend() ? std::nullopt : std::optional(*top);
}

void X11Workspace::giveKeyboard(xcb_window_t window) {
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection->get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_set_input_focus(m_connection->get(), XCB_INPUT_FOCUS_PARENT, window, m_connection->serverTime());
    m_connection->flush();
}

} // namespace zelmo
