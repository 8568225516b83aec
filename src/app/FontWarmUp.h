#pragma once

#include <thread>

namespace zelmo {

// Reads the system's font configuration on a thread of its own while the program starts: the first text
// would wait for it otherwise. Made first thing in main; ends with it.
class FontWarmUp {
public:
    FontWarmUp();
    ~FontWarmUp();
    FontWarmUp(const FontWarmUp&) = delete;
    FontWarmUp& operator=(const FontWarmUp&) = delete;

private:
    std::thread m_thread;
};

} // namespace zelmo
