#pragma once

#include <QQuickView>

namespace zelmo {

class AlertModel;

// The window of one alert, as large as its texts need. Made for the time that the alert is shown; main thread.
class AlertWindow : public QQuickView {
    Q_OBJECT

public:
    // The model outlives it.
    explicit AlertWindow(AlertModel& model);

    // In the middle of `parent`, or of the screen when that is null, and with the keyboard.
    void openAbove(QWindow* parent);

Q_SIGNALS:
    // By something other than an answer, as the window manager may do.
    void closed();

protected:
    bool event(QEvent* event) override;
};

} // namespace zelmo
