#include "platform/linux/icons/IconFileDecoder.h"

#include "platform/linux/files/RegularFile.h"
#include "platform/linux/icons/IconContainer.h"
#include "platform/linux/icons/Jpeg2000Picture.h"
#include "platform/linux/icons/PictureFormat.h"
#include "platform/linux/icons/SvgPicture.h"

#include <QPainter>

namespace zelmo {

namespace {

constexpr std::size_t fileLimit = 16 * 1024 * 1024;
constexpr int sideLimit = 4096;         // of a picture in a file
constexpr int pixelsLimit = 2048;       // of a picture that is asked for
constexpr int jpeg2000SideLimit = 1024; // its decoder takes some thirty bytes a pixel
constexpr std::size_t containerTries = 4;

QImage readPicture(const QByteArray& bytes, const QByteArray& format) {
    if (Jpeg2000Picture::isPicture(bytes))
        return Jpeg2000Picture::decode(bytes, jpeg2000SideLimit);
    limitPictureMemory();
    // The old kinds of .icns pictures are at most 128 pixels wide and have no header that gives their size.
    PictureReader reader(bytes, format);
    const QSize size = format == "icns" ? QSize(1, 1) : reader.size();
    if (size.width() <= 0 || size.height() <= 0 || size.width() > sideLimit || size.height() > sideLimit)
        return {};
    QImage picture = reader.read();
    if (picture.width() > sideLimit || picture.height() > sideLimit)
        return {};
    return picture;
}

QImage fitted(QImage picture, int pixels) {
    if (picture.isNull())
        return {};
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    const QSize size = picture.size().scaled(pixels, pixels, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    if (size != picture.size())
        picture = picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(1);
    if (picture.size() == QSize(pixels, pixels) && picture.format() == QImage::Format_ARGB32_Premultiplied)
        return picture;
    QImage square(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QPoint((pixels - size.width()) / 2, (pixels - size.height()) / 2), picture);
    return square;
}

} // namespace

QImage IconFileDecoder::decode(const QByteArray& bytes, int pixels) {
    if (pixels < 1 || pixels > pixelsLimit || bytes.isEmpty() || static_cast<std::size_t>(bytes.size()) > fileLimit)
        return {};
    const QByteArray format = pictureFormat(bytes);
    if (format.isEmpty())
        return SvgPicture::render(bytes, pixels);
    if (!IconContainer::isContainer(bytes))
        return fitted(readPicture(bytes, format), pixels);
    for (const QByteArray& picture : IconContainer::parse(bytes).pictures(pixels, containerTries)) {
        if (QImage image = fitted(readPicture(picture, pictureFormat(picture)), pixels); !image.isNull())
            return image;
    }
    return {};
}

QImage IconFileDecoder::decodeFile(const QByteArray& path, int pixels) {
    const FileContents contents = readRegularFile(path, fileLimit);
    return contents.status == FileReadStatus::read ? decode(contents.bytes, pixels) : QImage();
}

} // namespace zelmo
