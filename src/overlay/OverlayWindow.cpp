#include "overlay/OverlayWindow.h"

#include <QKeyEvent>
#include <QQuickItem>
#include <QResizeEvent>

namespace zelmo {

OverlayWindow::OverlayWindow() {
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setTitle(QStringLiteral("Zelmo"));
}

OverlayWindow::~OverlayWindow() = default;

void OverlayWindow::setRootItem(std::unique_ptr<QQuickItem> item) {
    m_root = std::move(item);
    m_root->setSize(size());
    m_root->setParentItem(contentItem());
}

void OverlayWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) {
        QQuickWindow::keyPressEvent(event);
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
    QQuickWindow::closeEvent(event);
}

void OverlayWindow::resizeEvent(QResizeEvent* event) {
    if (m_root)
        m_root->setSize(event->size());
    QQuickWindow::resizeEvent(event);
}

} // namespace zelmo
