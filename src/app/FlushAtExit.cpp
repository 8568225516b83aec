#include "app/FlushAtExit.h"

#include "preferences/Preferences.h"

#include <cstdlib>

namespace zelmo {

namespace {

Preferences* preferencesToFlush = nullptr;

void flushPreferences() {
    if (preferencesToFlush)
        preferencesToFlush->flush();
}

} // namespace

FlushAtExit::FlushAtExit(Preferences& preferences) {
    preferencesToFlush = &preferences;
    std::atexit(flushPreferences);
}

// From here on, the preferences see to it themselves.
FlushAtExit::~FlushAtExit() {
    preferencesToFlush = nullptr;
}

} // namespace zelmo
