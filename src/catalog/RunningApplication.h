#pragma once

#include "catalog/FileUrl.h"

#include <cstdint>
#include <optional>

namespace zelmo {

// An application that is in front, as far as the desktop can tell.
struct RunningApplication {
    std::int64_t processIdentifier = 0;
    // The bundle or desktop entry that it was started from.
    std::optional<FileUrl> bundleUrl;
};

} // namespace zelmo
