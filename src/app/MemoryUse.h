#pragma once

namespace zelmo {

// Gives the memory of pictures back to the system as soon as they are dropped: a program that is hidden most of the
// time should not keep what it needed for a moment. Call before large blocks are allocated.
void returnLargeBlocks();

} // namespace zelmo
