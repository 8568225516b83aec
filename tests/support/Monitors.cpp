#include "support/Monitors.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <xcb/randr.h>

namespace zelmo::test {

namespace {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, FreeDeleter>;

struct MonitorInfo {
    xcb_randr_monitor_info_t fixed;
    xcb_randr_output_t output; // when the number of outputs is 1
};

xcb_atom_t nameOf(const XDisplay& display, Monitor monitor) {
    const std::string_view name = monitor == Monitor::left ? "left" : "right";
    xcb_connection_t* connection = display.connection();
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply->atom;
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

// Takes the place of a monitor with the same name, and the output from the one that has it, which is gone then.
enum class Output { has, lacks };
void setMonitor(const XDisplay& display, Monitor monitor, Output output, const QRect& area) {
    MonitorInfo info{};
    info.fixed.name = nameOf(display, monitor);
    info.fixed.primary = output == Output::has;
    info.fixed.nOutput = output == Output::has;
    info.fixed.x = static_cast<std::int16_t>(area.x());
    info.fixed.y = static_cast<std::int16_t>(area.y());
    info.fixed.width = static_cast<std::uint16_t>(area.width());
    info.fixed.height = static_cast<std::uint16_t>(area.height());
    info.fixed.width_in_millimeters = static_cast<std::uint32_t>(area.width()) / 4;
    info.fixed.height_in_millimeters = static_cast<std::uint32_t>(area.height()) / 4;
    if (output == Output::has)
        info.output = outputOf(display);
    const Owned<xcb_generic_error_t> error(xcb_request_check(
        display.connection(), xcb_randr_set_monitor_checked(display.connection(), display.root(), &info.fixed)));
    if (error)
        qFatal("the X server takes no monitors");
}

QRect half(const XDisplay& display, Monitor monitor) {
    const QSize screen = display.size();
    const int width = screen.width() / 2;
    return {monitor == Monitor::left ? 0 : width, 0, width, screen.height()};
}

} // namespace

void divideScreen(const XDisplay& display) {
    const Owned<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
        display.connection(), xcb_randr_query_version(display.connection(), 1, 5), nullptr));
    setMonitor(display, Monitor::left, Output::has, half(display, Monitor::left));
    setMonitor(display, Monitor::right, Output::lacks, half(display, Monitor::right));
}

void removeMonitor(const XDisplay& display, Monitor monitor) {
    if (monitor == Monitor::left) {
        setMonitor(display, Monitor::right, Output::has, half(display, Monitor::right));
        return;
    }
    xcb_randr_delete_monitor(display.connection(), display.root(), nameOf(display, monitor));
    display.synchronize();
}

void resizeRightMonitor(const XDisplay& display, QSize size) {
    setMonitor(display, Monitor::right, Output::lacks, QRect(half(display, Monitor::right).topLeft(), size));
}

} // namespace zelmo::test
