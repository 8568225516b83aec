#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>
#include <functional>

namespace zelmo {

// Turns bursts of changes in the watched folders into few scans: one when a burst has been quiet for
// `quietTime`, and one every `longestWait` while it lasts. A package update, which removes an entry and
// adds it again, is one burst. Owned by the store, main thread.
class RescanTimer {
public:
    static constexpr std::chrono::milliseconds quietTime{300};
    static constexpr std::chrono::milliseconds longestWait{2000};

    explicit RescanTimer(std::function<void()> rescan);
    void noteChange();

private:
    QTimer m_timer;
    QElapsedTimer m_burst;
    std::function<void()> m_rescan;
};

} // namespace zelmo
