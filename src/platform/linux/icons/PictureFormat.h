#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QSize>

namespace zelmo {

// The kind of picture that the first bytes tell of, in the name that the decoders know it by. Empty
// when it is none that icons are in; vector pictures have no sure start and are not told.
QByteArray pictureFormat(const QByteArray& bytes);

// One picture of a known format, read from its beginning once.
class PictureReader {
public:
    PictureReader(const QByteArray& bytes, const QByteArray& format);

    // What the picture's own header gives, without decoding it. Empty when there is none, and for a picture that takes
    // much longer to decode than others of its size.
    QSize size() const;
    QImage read() { return m_reader.read(); }

private:
    QBuffer m_buffer;
    QImageReader m_reader;
    bool m_takesLong;
};

// Makes the decoders of the whole process refuse pictures that need more memory than the largest icon.
void limitPictureMemory();

} // namespace zelmo
