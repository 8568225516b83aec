#pragma once

#include "preferences/PreferenceTable.h"

#include <functional>

namespace zelmo {

// Where preferences outlive the process. Implemented once per platform, owned by the application's
// construction code, used by Preferences alone and only on the main thread.
class PreferencesStorage {
public:
    virtual ~PreferencesStorage() = default;

    // Everything that is stored, by name, each value with the type it was written with.
    virtual PreferenceValues read() = 0;

    // Lays the changes over what is stored, all of them or none. False when nothing could be stored;
    // what was stored before then still stands.
    virtual bool write(const PreferenceValues& changes) = 0;

    // The handler runs on the main thread after another program has changed what is stored.
    virtual void setOutsideChangeHandler(std::function<void()> handler) = 0;
};

} // namespace zelmo
