#pragma once

#include "catalog/FileUrl.h"

#include <cstdint>
#include <optional>

namespace zelmo {

// An application that is in front, as far as the desktop can tell.
struct RunningApplication {
    std::int64_t processIdentifier = 0; // 0 when the desktop does not know it
    // The bundle or desktop entry that it was started from.
    std::optional<FileUrl> bundleUrl;
    // Which of its windows is in front, in the desktop's own numbers; 0 where windows have none.
    std::uint64_t window = 0;

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

} // namespace zelmo
