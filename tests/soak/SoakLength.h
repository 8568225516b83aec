#pragma once

#include <QtGlobal>

namespace zelmo::test {

// How often a soak test does what it does: a few times among all tests, or for as long as it takes to see what adds up.
inline int soakCount(int brief, int full) {
    return qEnvironmentVariable("ZELMO_SOAK") == QLatin1StringView("long") ? full : brief;
}

} // namespace zelmo::test
