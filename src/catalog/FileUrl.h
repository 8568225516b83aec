#pragma once

#include <QByteArray>
#include <QHashFunctions>
#include <QString>

namespace zelmo {

// The absolute location of a file or folder, and the identity of everything that is found on disk.
// File names are bytes, texts are Unicode: `path()` is text that every file name has exactly one of,
// so that it can serve as a key in stored records; `nativePath()` gives the bytes back.
//
// Bytes that are not UTF-8 stand in the text as U+F780 to U+F7FF, one for each byte from 0x80 to
// 0xFF; the bytes of a name that really holds such a character are escaped the same way.
class FileUrl {
public:
    FileUrl() = default;

    static FileUrl fromPath(const QString& path) { return FileUrl(path); }
    static FileUrl fromNativePath(const QByteArray& path);

    const QString& path() const { return m_path; }
    QByteArray nativePath() const;

    // The text after the last slash. Escaped bytes show as U+FFFD when `displayText` is applied to it.
    QString lastPathComponent() const;
    // The text after the last dot of the last component, empty when there is none: "app" for "/a/b.app".
    QString pathExtension() const;
    // The last component without its extension.
    QString stem() const;

    // Replaces escaped bytes by U+FFFD, for showing a name that is not Unicode.
    static QString displayText(QString text);

    friend bool operator==(const FileUrl&, const FileUrl&) = default;
    friend size_t qHash(const FileUrl& url, size_t seed = 0) { return qHash(url.m_path, seed); }

private:
    explicit FileUrl(QString path) : m_path(std::move(path)) {}

    QString m_path;
};

} // namespace zelmo
