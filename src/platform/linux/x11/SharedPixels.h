#pragma once

#include "platform/linux/files/FileDescriptor.h"

#include <QImage>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace zelmo {

// Memory that the X server can write pixels into, without a name and without an owner in the system: it is gone with
// the last who has it, however the processes end. A movable value that belongs to whoever reads the screen; any thread.
class SharedPixels {
public:
    // All of it is there from the beginning. Nothing when the system has no room for it.
    static std::optional<SharedPixels> create(std::size_t size);

    std::uint8_t* bytes() const { return static_cast<std::uint8_t*>(m_memory.get()); }
    // An open file that stands for the memory, to be closed by who takes it; -1 when no more files can be opened.
    int duplicateDescriptor() const;
    // An RGB32 picture made of the memory itself, which is freed with the last copy of the picture.
    QImage intoPicture(QSize size, std::size_t bytesPerLine) &&;

private:
    struct Unmap {
        std::size_t size = 0;
        void operator()(void* memory) const;
    };
    using Memory = std::unique_ptr<void, Unmap>;

    SharedPixels(std::unique_ptr<FileDescriptor> descriptor, Memory memory)
        : m_descriptor(std::move(descriptor)), m_memory(std::move(memory)) {}

    std::unique_ptr<FileDescriptor> m_descriptor;
    Memory m_memory;
};

} // namespace zelmo
