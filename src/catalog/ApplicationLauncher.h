#pragma once

#include "catalog/FileUrl.h"

namespace zelmo {

// The desktop's service for starting applications. Main thread only.
class ApplicationLauncher {
public:
    virtual ~ApplicationLauncher() = default;

    // Asks the desktop to start the application at `application`. Neither waits for it nor reports a failure.
    virtual void openApplication(const FileUrl& application) = 0;
};

} // namespace zelmo
