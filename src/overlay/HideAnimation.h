#pragma once

#include "overlay/CollapseWindow.h"

#include <QEasingCurve>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace zelmo {

// Shrinks a picture of the wall into a small bar while it fades, a step for each frame of the screen. Owned by the
// window controller; main thread.
class HideAnimation : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds duration{240};
    static constexpr double finalOpacity = 0.08;

    HideAnimation();

    // Covers `from` at once. `completed` is called when the time is over, also when the picture is dropped before.
    // Lengths are points of the screen.
    void start(const QImage& picture, QScreen* screen, const QRect& from, const QRect& to,
               std::function<void()> completed);
    // The same time without anything to be seen.
    void startUnseen(std::function<void()> completed);
    // What is to be seen of it goes; the time runs on.
    void dropPicture();

    bool isRunning() const { return m_frames.isActive(); }
    // From 0 to 1, for a part of the duration from 0 to 1.
    static double progressAt(double part);

private:
    void showFrame();

    CollapseWindow m_window;
    QRect m_from;
    QRect m_to;
    std::function<void()> m_completed;
    QElapsedTimer m_clock;
    QTimer m_frames;
};

} // namespace zelmo
