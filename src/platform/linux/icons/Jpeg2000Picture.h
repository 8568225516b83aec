#pragma once

#include <QByteArray>
#include <QImage>

namespace zelmo {

// Decodes JPEG 2000, which the larger sizes of many .icns files are in and Qt has no decoder for.
// Keeps nothing; may be used on several threads at once.
class Jpeg2000Picture {
public:
    static bool isPicture(const QByteArray& bytes);
    // Null when the bytes are damaged, wider or higher than `sideLimit`, or no picture of eight bits a channel.
    static QImage decode(const QByteArray& bytes, int sideLimit);
};

} // namespace zelmo
