#include "overlay/OverlayWindow.h"

#include <QKeyEvent>

namespace zelmo {

OverlayWindow::OverlayWindow() {
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setResizeMode(QQuickView::SizeRootObjectToView);
    setTitle(QStringLiteral("Zelmo"));
}

void OverlayWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) {
        QQuickView::keyPressEvent(event);
        return;
    }
    if (onEscape)
        onEscape();
    event->accept();
}

void OverlayWindow::closeEvent(QCloseEvent* event) {
    if (onClose)
        onClose();
    // Not refused: the end of the program and of the session close all windows, and would be called off.
    QQuickView::closeEvent(event);
}

} // namespace zelmo
