#include "overlay/CollapseWindow.h"

#include <QPainter>

namespace zelmo {

CollapseWindow::CollapseWindow() {
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowStaysOnTopHint |
             Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    setTitle(QStringLiteral("Collapse"));
}

void CollapseWindow::setPicture(const QImage& picture) {
    m_pictures = {picture, QImage(), QImage()};
}

void CollapseWindow::paintEvent(QPaintEvent*) {
    const QSize pixels = size() * devicePixelRatio();
    std::size_t level = 0;
    while (level + 1 < m_pictures.size() && m_pictures[level].width() >= 2 * pixels.width()) {
        QImage& next = m_pictures[level + 1];
        if (next.isNull())
            next =
                m_pictures[level].scaled(m_pictures[level].size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        ++level;
    }
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QRect(QPoint(), size()), m_pictures[level]);
}

} // namespace zelmo
