#pragma once

#include <unistd.h>

namespace zelmo {

// Owns one open file descriptor and closes it. A negative value stands for none.
class FileDescriptor {
public:
    explicit FileDescriptor(int value) : m_value(value) {}
    ~FileDescriptor() { reset(-1); }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    int value() const { return m_value; }
    bool isValid() const { return m_value >= 0; }
    void reset(int value) {
        if (m_value >= 0)
            close(m_value);
        m_value = value;
    }

private:
    int m_value;
};

} // namespace zelmo
