#pragma once

#include "shell/ProgramInstance.h"

#include <array>
#include <memory>
#include <optional>

namespace zelmo {

// Sees to it that one process runs for a session and a display. Made first of all in the process; main thread.
class ProgramInstances {
public:
    ProgramInstances();

    // What the process has to end with at once, when another one does its work.
    std::optional<int> claim();
    void listen(const ProgramInstance::RequestHandler& handler);

private:
    std::array<std::unique_ptr<ProgramInstance>, 2> m_places;
};

} // namespace zelmo
