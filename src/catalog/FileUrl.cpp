#include "catalog/FileUrl.h"

#include <QStringDecoder>

namespace zelmo {

namespace {

constexpr char16_t escapeBase = 0xF700;

constexpr bool isEscape(char16_t unit) {
    return unit >= escapeBase + 0x80 && unit <= escapeBase + 0xFF;
}

// The length of the well-formed UTF-8 sequence at `position`, 0 when there is none.
qsizetype sequenceLength(const QByteArray& bytes, qsizetype position) {
    const auto byteAt = [&](qsizetype i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U; };
    const unsigned lead = byteAt(position);
    const auto continues = [&](qsizetype offset, unsigned low = 0x80, unsigned high = 0xBF) {
        const unsigned byte = byteAt(position + offset);
        return byte >= low && byte <= high;
    };
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return continues(1) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF) {
        const unsigned low = lead == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = lead == 0xED ? 0x9F : 0xBF;
        return continues(1, low, high) && continues(2) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const unsigned low = lead == 0xF0 ? 0x90 : 0x80;
        const unsigned high = lead == 0xF4 ? 0x8F : 0xBF;
        return continues(1, low, high) && continues(2) && continues(3) ? 4 : 0;
    }
    return 0;
}

bool isAscii(const QByteArray& bytes) {
    return std::all_of(bytes.cbegin(), bytes.cend(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

} // namespace

FileUrl FileUrl::fromNativePath(const QByteArray& path) {
    if (isAscii(path))
        return FileUrl(QString::fromLatin1(path));
    // A mark of byte order is a character like any other in a name.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text;
    text.reserve(path.size());
    for (qsizetype i = 0; i < path.size();) {
        const qsizetype length = sequenceLength(path, i);
        const QString decoded = decoder.decode(QByteArrayView(path.constData() + i, length));
        if (length > 0 && !isEscape(decoded[0].unicode())) {
            text += decoded;
            i += length;
        } else {
            const qsizetype end = i + std::max<qsizetype>(length, 1);
            for (; i < end; ++i)
                text += QChar(static_cast<char16_t>(escapeBase + static_cast<unsigned char>(path[i])));
        }
    }
    return FileUrl(text);
}

QByteArray FileUrl::nativePath() const {
    const bool plain = std::none_of(m_path.cbegin(), m_path.cend(), [](QChar c) { return isEscape(c.unicode()); });
    if (plain)
        return m_path.toUtf8();
    QByteArray bytes;
    qsizetype start = 0;
    for (qsizetype i = 0; i < m_path.size(); ++i) {
        if (!isEscape(m_path[i].unicode()))
            continue;
        bytes += QStringView(m_path).mid(start, i - start).toUtf8();
        bytes += static_cast<char>(m_path[i].unicode() - escapeBase);
        start = i + 1;
    }
    return bytes + QStringView(m_path).mid(start).toUtf8();
}

QString FileUrl::lastPathComponent() const {
    const qsizetype slash = m_path.lastIndexOf(u'/');
    return slash < 0 ? m_path : m_path.mid(slash + 1);
}

QString FileUrl::pathExtension() const {
    const QString name = lastPathComponent();
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot <= 0 ? QString() : name.mid(dot + 1);
}

QString FileUrl::stem() const {
    const QString name = lastPathComponent();
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot <= 0 ? name : name.left(dot);
}

QString FileUrl::displayText(QString text) {
    for (QChar& c : text) {
        if (isEscape(c.unicode()))
            c = QChar::ReplacementCharacter;
    }
    return text;
}

} // namespace zelmo
