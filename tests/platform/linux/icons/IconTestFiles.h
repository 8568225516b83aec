#pragma once

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

namespace zelmo::test {

// A folder of its own for one test, with short ways to fill it.
class IconTestFolder {
public:
    QByteArray path() const { return QFile::encodeName(m_folder.path()); }
    QByteArray path(const char* name) const { return path() + '/' + name; }

    void write(const QByteArray& name, const QByteArray& bytes = "x") const {
        const QString file = m_folder.filePath(QFile::decodeName(name));
        QDir().mkpath(QFileInfo(file).path());
        QFile output(file);
        if (!output.open(QIODevice::WriteOnly) || output.write(bytes) != bytes.size())
            qFatal("can't write %s", qPrintable(file));
    }

private:
    QTemporaryDir m_folder;
};

inline QByteArray encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, format))
        qFatal("can't encode %s", format);
    return bytes;
}

inline QImage filled(int width, int height, QRgb color) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

inline QByteArray png(int width, int height, QRgb color) {
    return encoded(filled(width, height, color), "PNG");
}

inline QByteArray svg(const QByteArray& body, const QByteArray& attributes = "viewBox='0 0 100 100'") {
    const QByteArray start = "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' ";
    return start + attributes + ">" + body + "</svg>";
}

} // namespace zelmo::test
