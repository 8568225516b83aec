#include "app/MemoryUse.h"

#include <malloc.h>

namespace zelmo {

namespace {

// Bytes. The icons of cards stay below; pictures of panels and screens are above.
constexpr int largeBlock = 512 * 1024;

} // namespace

void returnLargeBlocks() {
    // Once set, it no longer grows with the largest block that was freed.
    mallopt(M_MMAP_THRESHOLD, largeBlock);
}

} // namespace zelmo
