#include "app/QtSharedApplication.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>

namespace zelmo {

QtSharedApplication::QtSharedApplication() {
    if (!qGuiApp)
        qFatal("There is no application object.");
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

// The desktop lists a program under its icon when it knows the program's entry.
void QtSharedApplication::setActivationPolicy(ActivationPolicy policy) {
    switch (policy) {
    case ActivationPolicy::regular:
        QGuiApplication::setDesktopFileName(QStringLiteral("org.zelmo.Zelmo"));
        return;
    }
}

void QtSharedApplication::setApplicationIconImage(const QImage& image) {
    QGuiApplication::setWindowIcon(QIcon(QPixmap::fromImage(image)));
}

void QtSharedApplication::terminate() {
    QGuiApplication::quit();
}

} // namespace zelmo
