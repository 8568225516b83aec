#include "overlay/HideAnimation.h"

#include <QScreen>

#include <algorithm>
#include <utility>

namespace zelmo {

namespace {

constexpr double usualRefreshRate = 60; // Hz

int between(int from, int to, double progress) {
    return static_cast<int>(std::lround(from + progress * (to - from)));
}

} // namespace

HideAnimation::HideAnimation() {
    m_frames.setTimerType(Qt::PreciseTimer);
    connect(&m_frames, &QTimer::timeout, this, &HideAnimation::showFrame);
}

double HideAnimation::progressAt(double part) {
    static const QEasingCurve easeInEaseOut = [] {
        QEasingCurve curve(QEasingCurve::BezierSpline);
        curve.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
        return curve;
    }();
    return easeInEaseOut.valueForProgress(std::clamp(part, 0.0, 1.0));
}

void HideAnimation::start(const QImage& picture, QScreen* screen, const QRect& from, const QRect& to,
                          std::function<void()> completed) {
    m_from = from;
    m_to = to;
    m_window.setPicture(picture);
    m_window.setScreen(screen);
    m_window.setOpacity(1);
    m_window.setGeometry(from);
    m_window.show();
    m_window.raise();
    startUnseen(std::move(completed));
    const double rate = screen && screen->refreshRate() > 1 ? screen->refreshRate() : usualRefreshRate;
    m_frames.setInterval(static_cast<int>(1000 / rate));
}

void HideAnimation::startUnseen(std::function<void()> completed) {
    m_completed = std::move(completed);
    m_clock.start();
    m_frames.start(duration);
}

void HideAnimation::dropPicture() {
    m_window.hide();
    m_window.setPicture({});
}

void HideAnimation::showFrame() {
    const double part = static_cast<double>(m_clock.elapsed()) / static_cast<double>(duration.count());
    if (part >= 1) {
        m_frames.stop();
        dropPicture();
        std::exchange(m_completed, {})();
        return;
    }
    if (!m_window.isVisible())
        return;
    const double progress = progressAt(part);
    m_window.setGeometry(between(m_from.x(), m_to.x(), progress), between(m_from.y(), m_to.y(), progress),
                         between(m_from.width(), m_to.width(), progress),
                         between(m_from.height(), m_to.height(), progress));
    m_window.setOpacity(1 + progress * (finalOpacity - 1));
    m_window.update();
}

} // namespace zelmo
