#include "platform/linux/freedesktop/DesktopEntryValue.h"

#include "platform/linux/files/Utf8Decoder.h"

namespace zelmo::DesktopEntryValue {

namespace {

bool isAscii(std::string_view raw) {
    return std::all_of(raw.cbegin(), raw.cend(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::optional<QString> decode(std::string_view raw) {
    const auto size = static_cast<qsizetype>(raw.size());
    if (isAscii(raw))
        return QString::fromLatin1(raw.data(), size);
    QStringDecoder decoder = utf8Decoder();
    QString decoded = decoder.decode(QByteArrayView(raw.data(), size));
    if (decoder.hasError())
        return std::nullopt;
    return decoded;
}

bool isUtf8(std::string_view raw) {
    return isAscii(raw) || decode(raw);
}

std::optional<char> meaningOf(char escaped) {
    switch (escaped) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case '\\':
        return '\\';
    default:
        return std::nullopt;
    }
}

QByteArray unescaped(std::string_view raw) {
    QByteArray result;
    result.reserve(static_cast<qsizetype>(raw.size()));
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (raw[i] != '\\') {
            result += raw[i];
            continue;
        }
        // A backslash that ends the value is dropped.
        if (++i == raw.size())
            break;
        const std::optional<char> meaning = meaningOf(raw[i]);
        if (!meaning)
            result += '\\';
        result += meaning.value_or(raw[i]);
    }
    return result;
}

} // namespace

std::optional<QByteArray> bytes(std::string_view raw) {
    if (!isUtf8(raw))
        return std::nullopt;
    return unescaped(raw);
}

std::optional<QString> text(std::string_view raw) {
    if (raw.find('\\') == std::string_view::npos)
        return decode(raw);
    if (!isUtf8(raw))
        return std::nullopt;
    const QByteArray plain = unescaped(raw);
    return decode({plain.constData(), static_cast<std::size_t>(plain.size())});
}

std::optional<QList<QByteArray>> list(std::string_view raw) {
    if (!isUtf8(raw))
        return std::nullopt;
    QList<QByteArray> parts;
    QByteArray part;
    bool hasOpenPart = false;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        hasOpenPart = raw[i] != ';';
        if (!hasOpenPart) {
            parts.append(std::exchange(part, QByteArray()));
        } else if (raw[i] != '\\') {
            part += raw[i];
        } else {
            if (++i == raw.size())
                return std::nullopt;
            const std::optional<char> meaning = raw[i] == ';' ? ';' : meaningOf(raw[i]);
            if (!meaning)
                return std::nullopt;
            part += *meaning;
        }
    }
    if (hasOpenPart)
        parts.append(part);
    return parts;
}

bool flag(std::string_view raw) {
    const std::size_t last = raw.find_last_not_of(" \t\n\r\f");
    const std::string_view word = raw.substr(0, last == std::string_view::npos ? 0 : last + 1);
    return word == "true" || word == "1";
}

} // namespace zelmo::DesktopEntryValue
