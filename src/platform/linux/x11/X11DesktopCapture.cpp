#include "platform/linux/x11/X11DesktopCapture.h"

#include "platform/linux/x11/PictureMemory.h"
#include "platform/linux/x11/QtX11Connection.h"
#include "platform/linux/x11/ScreenPixels.h"
#include "platform/linux/x11/X11RootReader.h"

#include <QPainter>

namespace zelmo {

QImage X11DesktopCapture::capture(const QScreen& screen) {
    const auto x11 = QtX11Connection::current();
    if (!x11)
        return {};
    const X11RootReader reader(x11->connection, x11->root, m_patience);
    const QRect wanted = pixelsOf(screen);
    const QRect seen = wanted & reader.area().value_or(QRect());
    QImage picture = reader.picture(seen);
    if (picture.isNull() || seen == wanted)
        return picture;
    QImage whole = makeLargePicture(wanted.size());
    if (whole.isNull())
        return {};
    whole.fill(Qt::black);
    QPainter(&whole).drawImage(seen.topLeft() - wanted.topLeft(), picture);
    return whole;
}

} // namespace zelmo
