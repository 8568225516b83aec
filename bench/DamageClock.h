#pragma once

#include "support/XDisplay.h"

#include <chrono>
#include <functional>
#include <vector>
#include <xcb/damage.h>

namespace zelmo::bench {

using Clock = std::chrono::steady_clock;

// Tells when something was painted anywhere on the screen, through the DAMAGE extension on a
// connection of its own. What is no wider than a text cursor is passed over, since cursors blink.
class DamageClock {
public:
    explicit DamageClock(const QString& displayName);

    struct Painting {
        Clock::time_point at;
        QRect area;
    };

    // Forgets what was painted so far.
    void clear();
    // Collects until nothing was painted for `quiet`, but for at least one painting and at most `longest`.
    std::vector<Painting> collect(std::chrono::milliseconds quiet, std::chrono::milliseconds longest);

private:
    void read(std::vector<Painting>& paintings);

    std::unique_ptr<test::XDisplay> m_display;
    std::uint8_t m_damageEvent = 0;
};

} // namespace zelmo::bench
