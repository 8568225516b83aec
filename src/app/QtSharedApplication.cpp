#include "app/QtSharedApplication.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QWindow>

#include <utility>

namespace zelmo {

namespace {

// A start shows its first window in less.
constexpr std::chrono::milliseconds firstWindowTime{250};

} // namespace

QtSharedApplication::QtSharedApplication() {
    if (!qGuiApp)
        qFatal("There is no application object.");
    QGuiApplication::setQuitOnLastWindowClosed(false);
    m_drawLater.setSingleShot(true);
    m_drawLater.setInterval(firstWindowTime);
    QObject::connect(&m_drawLater, &QTimer::timeout, &m_drawLater, [this] { drawIcon(); });
}

// The desktop lists a program under its icon when it knows the program's entry.
void QtSharedApplication::setActivationPolicy(ActivationPolicy policy) {
    switch (policy) {
    case ActivationPolicy::regular:
        QGuiApplication::setDesktopFileName(QStringLiteral("org.zelmo.Zelmo"));
        return;
    }
}

void QtSharedApplication::setApplicationIconImage(std::function<QImage()> draw) {
    m_draw = std::move(draw);
    if (QGuiApplication::topLevelWindows().isEmpty())
        m_drawLater.start();
    else
        drawIcon();
}

void QtSharedApplication::drawIcon() {
    m_drawLater.stop();
    const QImage image = m_draw();
    if (image.isNull())
        return;
    const QIcon icon(QPixmap::fromImage(image));
    QGuiApplication::setWindowIcon(icon);
    // A window takes the program's first icon for its own and would keep that.
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow* window : windows)
        window->setIcon(icon);
}

void QtSharedApplication::terminate() {
    QGuiApplication::quit();
}

} // namespace zelmo
