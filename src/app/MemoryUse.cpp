#include "app/MemoryUse.h"

#include <malloc.h>

namespace zelmo {

namespace {

// Bytes. The icons of cards stay below; pictures of panels and screens are above.
constexpr int largeBlock = 512 * 1024;
// Threads that decode icons work for a moment; each one's own store of memory would stay as large as it once was.
constexpr int stores = 2;

} // namespace

void limitKeptMemory() {
    // Once set, the limit no longer grows with the largest block that was freed.
    mallopt(M_MMAP_THRESHOLD, largeBlock);
    mallopt(M_ARENA_MAX, stores);
}

} // namespace zelmo
