#include "platform/linux/icons/SvgPicture.h"

#include "platform/linux/icons/PictureFormat.h"
#include "platform/linux/icons/SvgEffects.h"
#include "platform/linux/icons/SvgGuard.h"
#include "platform/linux/icons/SvgLibrary.h"

#include <QPainter>
#include <QSvgRenderer>

#include <zlib.h>

namespace zelmo {

namespace {

// Nothing when the bytes are damaged or grow beyond the limit.
QByteArray inflated(const QByteArray& bytes) {
    z_stream stream{};
    if (inflateInit2(&stream, 16 + MAX_WBITS) != Z_OK)
        return {};
    QByteArray output(SvgGuard::byteLimit + 1, Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.constData()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(output.data());
    stream.avail_out = static_cast<uInt>(output.size());
    const int result = inflate(&stream, Z_FINISH);
    const auto length = output.size() - static_cast<qsizetype>(stream.avail_out);
    inflateEnd(&stream);
    if (result != Z_STREAM_END || length > SvgGuard::byteLimit)
        return {};
    output.truncate(length);
    output.squeeze();
    return output;
}

} // namespace

QImage SvgPicture::render(const QByteArray& bytes, int pixels) {
    limitPictureMemory();
    QByteArray text = bytes.startsWith("\x1f\x8b") ? inflated(bytes) : bytes;
    SvgVerdict verdict = SvgGuard::check(text);
    if (verdict == SvgVerdict::tooManyDashes) {
        // Whole lines instead of dashes are better than no picture.
        text.replace("stroke-dasharray", "ignored-dasharray");
        verdict = SvgGuard::check(text);
    }
    if (verdict != SvgVerdict::accepted)
        return {};
    if (SvgEffects::read(text).canBeDrawn(pixels)) {
        if (QImage image = SvgLibrary::draw(text, pixels); !image.isNull())
            return image;
    }
    // Better than nothing where the library is missing or the effects would take too long: it passes over them.
    QSvgRenderer renderer;
    renderer.setFramesPerSecond(0);
    if (!renderer.load(text))
        return {};
    QSizeF size = renderer.viewBoxF().size();
    if (size.isEmpty())
        size = renderer.defaultSize();
    if (size.isEmpty())
        return {};
    size.scale(pixels, pixels, Qt::KeepAspectRatio);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    renderer.render(&painter, QRectF(QPointF((pixels - size.width()) / 2, (pixels - size.height()) / 2), size));
    return image;
}

} // namespace zelmo
