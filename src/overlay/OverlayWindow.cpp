#include "overlay/OverlayWindow.h"

#include <QKeyEvent>

namespace zelmo {

OverlayWindow::OverlayWindow() {
    setFlags(Qt::Window | Qt::FramelessWindowHint);
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

} // namespace zelmo
