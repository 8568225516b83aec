#pragma once

namespace zelmo {

class Preferences;

// Stores what is still to be written when the process ends in the middle of something, as the toolkit ends it when the
// X server has gone. Made once in main, right after the preferences; main thread.
class FlushAtExit {
public:
    explicit FlushAtExit(Preferences& preferences);
    ~FlushAtExit();
    FlushAtExit(const FlushAtExit&) = delete;
    FlushAtExit& operator=(const FlushAtExit&) = delete;
};

} // namespace zelmo
