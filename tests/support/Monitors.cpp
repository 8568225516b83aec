#include "support/Monitors.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <sys/uio.h>
#include <xcb/randr.h>
#include <xcb/xcbext.h>

namespace zelmo::test {

namespace {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, FreeDeleter>;

// A request as it goes over the wire; the library's own function for it finds a wrong length.
struct SetMonitorRequest {
    xcb_randr_set_monitor_request_t head;
    xcb_randr_monitor_info_t monitor;
    xcb_randr_output_t output; // there when the number of outputs is 1
};

xcb_atom_t atomNamed(const XDisplay& display, std::string_view name) {
    xcb_connection_t* connection = display.connection();
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply->atom;
}

xcb_atom_t nameOf(const XDisplay& display, Monitor monitor) {
    return atomNamed(display, monitor == Monitor::left ? "left" : "right");
}

// A virtual server has one.
xcb_randr_output_t outputOf(const XDisplay& display) {
    xcb_connection_t* connection = display.connection();
    const Owned<xcb_randr_get_screen_resources_current_reply_t> reply(xcb_randr_get_screen_resources_current_reply(
        connection, xcb_randr_get_screen_resources_current(connection, display.root()), nullptr));
    if (!reply || xcb_randr_get_screen_resources_current_outputs_length(reply.get()) == 0)
        qFatal("the X server has no output");
    return xcb_randr_get_screen_resources_current_outputs(reply.get())[0];
}

// Takes the output from the monitor that has it, which is gone then.
enum class Output { has, lacks };
void setMonitor(const XDisplay& display, xcb_atom_t name, Output output, const QRect& area) {
    SetMonitorRequest request{};
    request.head.window = display.root();
    request.monitor.name = name;
    request.monitor.primary = output == Output::has;
    request.monitor.nOutput = output == Output::has;
    request.monitor.x = static_cast<std::int16_t>(area.x());
    request.monitor.y = static_cast<std::int16_t>(area.y());
    request.monitor.width = static_cast<std::uint16_t>(area.width());
    request.monitor.height = static_cast<std::uint16_t>(area.height());
    request.monitor.width_in_millimeters = static_cast<std::uint32_t>(area.width()) / 4;
    request.monitor.height_in_millimeters = static_cast<std::uint32_t>(area.height()) / 4;
    if (output == Output::has)
        request.output = outputOf(display);
    const xcb_protocol_request_t kind{.count = 1, .ext = &xcb_randr_id, .opcode = XCB_RANDR_SET_MONITOR, .isvoid = 1};
    // The library wants two places of its own before the first part.
    std::array<iovec, 3> parts{};
    parts[2] = {&request, offsetof(SetMonitorRequest, output) + (output == Output::has ? sizeof request.output : 0)};
    const xcb_void_cookie_t cookie{xcb_send_request(display.connection(), XCB_REQUEST_CHECKED, &parts[2], &kind)};
    const Owned<xcb_generic_error_t> error(xcb_request_check(display.connection(), cookie));
    if (error || xcb_connection_has_error(display.connection()))
        qFatal("the X server takes no monitors");
}

void deleteMonitor(const XDisplay& display, Monitor monitor) {
    xcb_randr_delete_monitor(display.connection(), display.root(), nameOf(display, monitor));
    display.synchronize();
}

Monitor otherOf(Monitor monitor) {
    return monitor == Monitor::left ? Monitor::right : Monitor::left;
}

bool isPrimary(const XDisplay& display, Monitor monitor) {
    const xcb_atom_t name = nameOf(display, monitor);
    const Owned<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(
        display.connection(), xcb_randr_get_monitors(display.connection(), display.root(), 1), nullptr));
    for (auto all = xcb_randr_get_monitors_monitors_iterator(reply.get()); all.rem > 0;
         xcb_randr_monitor_info_next(&all)) {
        if (all.data->name == name)
            return all.data->primary != 0;
    }
    return false;
}

QRect half(const XDisplay& display, Monitor monitor) {
    const QSize screen = display.size();
    const int width = screen.width() / 2;
    return {monitor == Monitor::left ? 0 : width, 0, width, screen.height()};
}

} // namespace

void divideScreen(const XDisplay& display, Monitor primary) {
    const Monitor other = otherOf(primary);
    const Owned<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
        display.connection(), xcb_randr_query_version(display.connection(), 1, 5), nullptr));
    setMonitor(display, nameOf(display, primary), Output::has, half(display, primary));
    setMonitor(display, nameOf(display, other), Output::lacks, half(display, other));
}

void removeMonitor(const XDisplay& display, Monitor monitor) {
    const Monitor other = otherOf(monitor);
    if (!isPrimary(display, monitor)) {
        deleteMonitor(display, monitor);
        return;
    }
    deleteMonitor(display, other);
    setMonitor(display, nameOf(display, other), Output::has, half(display, other));
}

void addSecondMonitor(const XDisplay& display, Monitor monitor, const QRect& area) {
    setMonitor(display, nameOf(display, monitor), Output::lacks, area);
}

void moveSecondMonitor(const XDisplay& display, Monitor monitor, const QRect& area) {
    deleteMonitor(display, monitor);
    addSecondMonitor(display, monitor, area);
}

void renameSecondMonitor(const XDisplay& display, Monitor monitor, std::string_view name) {
    deleteMonitor(display, monitor);
    setMonitor(display, atomNamed(display, name), Output::lacks, half(display, monitor));
}

} // namespace zelmo::test
