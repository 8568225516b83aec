#pragma once

namespace zelmo {

// Has the allocator keep little of what is dropped: a program that is hidden most of the time should not hold what it
// needed for a moment. Call before there is another thread.
void limitKeptMemory();

} // namespace zelmo
