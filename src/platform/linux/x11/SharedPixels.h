#pragma once

#include "platform/linux/files/FileDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace zelmo {

// Memory that the X server can write pixels into, without a name and without an owner in the system: it is gone with
// the last who has it, however the processes end. Belongs to whoever reads the screen; any thread.
class SharedPixels {
public:
    // All of it is there from the beginning. Null when the system has no room for it.
    static std::unique_ptr<SharedPixels> create(std::size_t size);
    ~SharedPixels();
    SharedPixels(const SharedPixels&) = delete;
    SharedPixels& operator=(const SharedPixels&) = delete;

    const std::uint8_t* bytes() const { return static_cast<const std::uint8_t*>(m_memory); }
    // An open file that stands for the memory, to be closed by who takes it; -1 when no more files can be opened.
    int duplicateDescriptor() const;

private:
    explicit SharedPixels(std::size_t size);

    FileDescriptor m_descriptor;
    std::size_t m_size;
    void* m_memory = nullptr;
};

} // namespace zelmo
