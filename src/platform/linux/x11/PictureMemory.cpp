#include "platform/linux/x11/PictureMemory.h"

#include <cstdint>
#include <memory>
#include <sys/mman.h>

namespace zelmo {

namespace {

constexpr std::size_t largePage = 2UL * 1024 * 1024;

// So much memory that it holds the size from a large page's begin on.
class Memory {
public:
    explicit Memory(std::size_t size) : m_size(size + largePage) {
        void* memory = mmap(nullptr, m_size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            return;
        m_memory = memory;
        madvise(m_memory, m_size, MADV_HUGEPAGE);
    }
    ~Memory() {
        if (m_memory)
            munmap(m_memory, m_size);
    }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    // Null when there is none.
    uchar* bytes(std::size_t size) const {
        void* begin = m_memory;
        std::size_t room = m_size;
        return m_memory ? static_cast<uchar*>(std::align(largePage, size, begin, room)) : nullptr;
    }

private:
    std::size_t m_size;
    void* m_memory = nullptr;
};

} // namespace

QImage makeLargePicture(QSize size) {
    if (size.isEmpty())
        return {};
    const std::size_t step = static_cast<std::size_t>(size.width()) * sizeof(QRgb);
    const std::size_t bytes = step * static_cast<std::size_t>(size.height());
    auto memory = std::make_unique<Memory>(bytes);
    uchar* begin = memory->bytes(bytes);
    if (!begin)
        return {};
    QImage picture(
        begin, size.width(), size.height(), static_cast<qsizetype>(step), QImage::Format_RGB32,
        [](void* owner) { delete static_cast<Memory*>(owner); }, memory.get());
    if (!picture.isNull())
        static_cast<void>(memory.release());
    return picture;
}

} // namespace zelmo
