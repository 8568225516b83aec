#include "platform/linux/x11/SharedPixels.h"

#include <fcntl.h>
#include <sys/mman.h>

namespace zelmo {

std::optional<SharedPixels> SharedPixels::create(std::size_t size) {
    auto descriptor = std::make_unique<FileDescriptor>(memfd_create("zelmo-screen", MFD_CLOEXEC));
    // Memory that is only promised would end whoever touches it when there is none left.
    if (!descriptor->isValid() || fallocate(descriptor->value(), 0, 0, static_cast<off_t>(size)) != 0)
        return std::nullopt;
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor->value(), 0);
    if (memory == MAP_FAILED)
        return std::nullopt;
    return SharedPixels(std::move(descriptor), Memory(memory, Unmap{size}));
}

int SharedPixels::duplicateDescriptor() const {
    return fcntl(m_descriptor->value(), F_DUPFD_CLOEXEC, 0);
}

QImage SharedPixels::intoPicture(QSize size, std::size_t bytesPerLine) && {
    auto* owner = new Memory(std::move(m_memory));
    QImage picture(
        static_cast<uchar*>(owner->get()), size.width(), size.height(), static_cast<qsizetype>(bytesPerLine),
        QImage::Format_RGB32, [](void* memory) { delete static_cast<Memory*>(memory); }, owner);
    if (picture.isNull())
        delete owner;
    return picture;
}

void SharedPixels::Unmap::operator()(void* memory) const {
    munmap(memory, size);
}

} // namespace zelmo
