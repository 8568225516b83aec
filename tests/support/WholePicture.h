#pragma once

#include "ui/DesktopCapture.h"

#include <QImage>
#include <QPainter>

namespace zelmo::test {

// The picture that comes row by row. Null when not all of it comes.
template <typename Read>
QImage wholePicture(Read read) {
    QImage picture;
    int top = 0;
    const bool isWhole = read([&](const QImage& rows, QSize whole) {
        if (picture.isNull())
            picture = QImage(whole, QImage::Format_RGB32);
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(0, top, rows);
        top += rows.height();
    });
    return isWhole && top == picture.height() ? picture : QImage();
}

} // namespace zelmo::test
