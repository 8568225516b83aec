#pragma once

#include <QByteArray>
#include <QImage>

namespace zelmo {

// Makes a picture of exactly the asked size out of a file that may be of any kind, damaged or
// malicious: everything is measured before it is decoded. Keeps nothing; may be used on several
// threads at once.
class IconFileDecoder {
public:
    // The picture's aspect is kept, its border is transparent. Null when there is no picture within the limits.
    static QImage decode(const QByteArray& bytes, int pixels);
    static QImage decodeFile(const QByteArray& path, int pixels);
};

} // namespace zelmo
