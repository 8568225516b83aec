#pragma once

#include <QByteArray>
#include <QImage>

namespace zelmo {

// Draws a vector picture at the size that it is wanted in, after it was checked to be harmless.
// Keeps nothing; may be used on several threads at once.
class SvgPicture {
public:
    // Null when the bytes are no such picture or are beyond the limits. They may be compressed.
    static QImage render(const QByteArray& bytes, int pixels);
};

} // namespace zelmo
