#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

namespace zelmo {

// For a bus that went away and may come again. Owned by whoever was connected, on whose thread it lives.
class ReconnectTimer : public QObject {
    Q_OBJECT

public:
    explicit ReconnectTimer(std::function<void()> connect, QObject* parent = nullptr);

    // Calls `connect` in a second, and each further time after twice as long, up to a minute: nobody is kept from
    // anything meanwhile, and a bus that never comes again costs next to nothing.
    void start();
    // Begins with a second again, for it is connected.
    void reset() { m_next = first; }

private:
    static constexpr std::chrono::seconds first{1};
    static constexpr std::chrono::seconds longest{60};

    QTimer m_timer{this};
    std::chrono::seconds m_next = first;
};

} // namespace zelmo
