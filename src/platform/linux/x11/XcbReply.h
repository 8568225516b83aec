#pragma once

#include <cstdlib>
#include <memory>

namespace zelmo {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

// A reply of the X server, which comes from malloc.
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, FreeDeleter>;

} // namespace zelmo
