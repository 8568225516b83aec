#include "bench/DamageClock.h"

#include <cstdlib>
#include <poll.h>

namespace zelmo::bench {

namespace {

constexpr int cursorWidth = 4;

} // namespace

DamageClock::DamageClock(const QString& displayName) : m_display(test::XDisplay::open(displayName)) {
    xcb_connection_t* connection = m_display->connection();
    m_damageEvent = xcb_get_extension_data(connection, &xcb_damage_id)->first_event;
    std::free(xcb_damage_query_version_reply(connection, xcb_damage_query_version(connection, 1, 1), nullptr));
    xcb_damage_create(connection, xcb_generate_id(connection), m_display->root(),
                      XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    m_display->synchronize();
}

void DamageClock::clear() {
    m_display->synchronize();
    std::vector<Painting> forgotten;
    read(forgotten);
}

std::vector<DamageClock::Painting> DamageClock::collect(std::chrono::milliseconds quiet,
                                                        std::chrono::milliseconds longest) {
    std::vector<Painting> paintings;
    const Clock::time_point end = Clock::now() + longest;
    for (;;) {
        const Clock::time_point now = Clock::now();
        const Clock::time_point until = paintings.empty() ? end : std::min(end, paintings.back().at + quiet);
        if (now >= until)
            return paintings;
        pollfd descriptor{.fd = xcb_get_file_descriptor(m_display->connection()), .events = POLLIN, .revents = 0};
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - now);
        poll(&descriptor, 1, static_cast<int>(left.count()) + 1);
        read(paintings);
    }
}

void DamageClock::read(std::vector<Painting>& paintings) {
    while (xcb_generic_event_t* event = xcb_poll_for_event(m_display->connection())) {
        if ((event->response_type & 0x7f) == m_damageEvent + XCB_DAMAGE_NOTIFY) {
            const auto& area = reinterpret_cast<const xcb_damage_notify_event_t*>(event)->area;
            if (area.width > cursorWidth)
                paintings.push_back({Clock::now(), QRect(area.x, area.y, area.width, area.height)});
        }
        std::free(event);
    }
}

} // namespace zelmo::bench
