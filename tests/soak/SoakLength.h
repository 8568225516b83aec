#pragma once

#include <QtGlobal>

namespace zelmo::test {

inline bool isLong() {
    return qEnvironmentVariable("ZELMO_SOAK") == QLatin1StringView("long");
}

// How often a soak test does what it does: a few times among all tests, or for as long as it takes to see what adds up.
inline int soakCount(int brief, int full) {
    return isLong() ? full : brief;
}

} // namespace zelmo::test
