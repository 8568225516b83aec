#pragma once

#include <QByteArrayView>

#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace zelmo {

// A folder open for reading, closed with the handle. Holds no folder when it could not be opened.
class DirectoryHandle {
public:
    DirectoryHandle(int parent, const char* path)
        : m_directory(open(openat(parent, path, O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK))) {}
    ~DirectoryHandle() {
        if (m_directory != nullptr)
            closedir(m_directory);
    }
    DirectoryHandle(const DirectoryHandle&) = delete;
    DirectoryHandle& operator=(const DirectoryHandle&) = delete;

    bool isOpen() const { return m_directory != nullptr; }
    int descriptor() const { return isOpen() ? dirfd(m_directory) : -1; }
    struct stat status() const {
        struct stat status {};
        if (isOpen())
            fstat(descriptor(), &status);
        return status;
    }

    // Hidden entries are left out.
    void forEachEntry(const std::function<void(QByteArrayView name, unsigned char kind)>& visit) {
        if (!isOpen())
            return;
        while (const dirent* entry = readdir(m_directory)) {
            if (entry->d_name[0] != '.')
                visit(QByteArrayView(entry->d_name), entry->d_type);
        }
    }

private:
    static DIR* open(int descriptor) {
        DIR* directory = descriptor < 0 ? nullptr : fdopendir(descriptor);
        if (directory == nullptr && descriptor >= 0)
            close(descriptor);
        return directory;
    }

    DIR* m_directory;
};

} // namespace zelmo
