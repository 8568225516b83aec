#include "platform/linux/x11/SharedPixels.h"

#include <fcntl.h>
#include <sys/mman.h>

namespace zelmo {

SharedPixels::SharedPixels(std::size_t size) : m_descriptor(memfd_create("zelmo-screen", MFD_CLOEXEC)), m_size(size) {
    // Memory that is only promised would end whoever touches it when there is none left.
    if (!m_descriptor.isValid() || fallocate(m_descriptor.value(), 0, 0, static_cast<off_t>(size)) != 0)
        return;
    void* memory = mmap(nullptr, size, PROT_READ, MAP_SHARED | MAP_POPULATE, m_descriptor.value(), 0);
    if (memory != MAP_FAILED)
        m_memory = memory;
}

SharedPixels::~SharedPixels() {
    if (m_memory)
        munmap(m_memory, m_size);
}

std::unique_ptr<SharedPixels> SharedPixels::create(std::size_t size) {
    std::unique_ptr<SharedPixels> pixels(new SharedPixels(size));
    return pixels->m_memory ? std::move(pixels) : nullptr;
}

int SharedPixels::duplicateDescriptor() const {
    return fcntl(m_descriptor.value(), F_DUPFD_CLOEXEC, 0);
}

} // namespace zelmo
