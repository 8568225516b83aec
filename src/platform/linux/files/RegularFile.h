#pragma once

#include <QByteArray>

#include <cstddef>

namespace zelmo {

enum class FileReadStatus {
    read,
    missing,    // no such file, or a part of its path is no folder
    unreadable, // no permission, an input error, or not a regular file
    tooLarge,
};

struct FileContents {
    FileReadStatus status = FileReadStatus::missing;
    QByteArray bytes;
};

// Reads a whole file of at most `limit` bytes. Links are followed. Never blocks on a pipe or a
// device: what is not a regular file is unreadable. `folder` is a descriptor that a relative `path`
// starts from, AT_FDCWD for the current folder. May be called on any thread.
FileContents readRegularFile(int folder, const char* path, std::size_t limit);
FileContents readRegularFile(const QByteArray& path, std::size_t limit);

} // namespace zelmo
