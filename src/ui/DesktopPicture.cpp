#include "ui/DesktopPicture.h"

#include "ui/DesktopCapture.h"

#include <QPainter>

#include <optional>

namespace zelmo {

QImage desktopPart(DesktopCapture& capture, const QScreen& screen, const QRect& pixels) {
    QImage part(pixels.size(), QImage::Format_RGB32);
    if (part.isNull())
        return {};
    part.fill(Qt::black);
    int top = 0;
    const bool isWhole = capture.read(screen, [&](const QImage& rows, QSize) {
        if (top <= pixels.bottom() && top + rows.height() > pixels.top())
            QPainter(&part).drawImage(QPoint(0, top) - pixels.topLeft(), rows);
        top += rows.height();
    });
    return isWhole ? part : QImage();
}

SmallPicture smallDesktop(DesktopCapture& capture, const QScreen& screen, int factor) {
    std::optional<PictureReduction> reduction;
    const bool isWhole = capture.read(screen, [&](const QImage& rows, QSize whole) {
        if (!reduction)
            reduction.emplace(whole, factor);
        reduction->add(rows);
    });
    return isWhole && reduction ? reduction->take() : SmallPicture();
}

} // namespace zelmo
