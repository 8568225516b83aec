#pragma once

#include <QObject>

#include <functional>

namespace zelmo {

// Takes every press of Escape in the program's windows for itself, as long as it exists. A window that blocks the
// others keeps its own. Main thread.
class EscapeMonitor : public QObject {
    Q_OBJECT

public:
    explicit EscapeMonitor(std::function<void()> escaped);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> m_escaped;
};

} // namespace zelmo
