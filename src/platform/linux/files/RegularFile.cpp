#include "platform/linux/files/RegularFile.h"

#include "platform/linux/files/FileDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zelmo {

FileContents readRegularFile(int folder, const char* path, std::size_t limit) {
    const FileDescriptor file(openat(folder, path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file.isValid())
        return {errno == ENOENT || errno == ENOTDIR ? FileReadStatus::missing : FileReadStatus::unreadable, {}};
    struct stat status {};
    if (fstat(file.value(), &status) != 0 || !S_ISREG(status.st_mode))
        return {FileReadStatus::unreadable, {}};
    if (static_cast<std::size_t>(status.st_size) > limit)
        return {FileReadStatus::tooLarge, {}};

    // One byte more than the size, so that a file that grows meanwhile is seen to grow.
    QByteArray bytes(static_cast<qsizetype>(status.st_size) + 1, Qt::Uninitialized);
    qsizetype length = 0;
    for (;;) {
        const ssize_t count =
            read(file.value(), bytes.data() + length, static_cast<std::size_t>(bytes.size() - length));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return {FileReadStatus::unreadable, {}};
        length += count;
        if (static_cast<std::size_t>(length) > limit)
            return {FileReadStatus::tooLarge, {}};
        if (length < bytes.size())
            break;
        bytes.resize(bytes.size() + 4096);
    }
    bytes.truncate(length);
    return {FileReadStatus::read, bytes};
}

FileContents readRegularFile(const QByteArray& path, std::size_t limit) {
    return readRegularFile(AT_FDCWD, path.constData(), limit);
}

} // namespace zelmo
