#include "platform/linux/freedesktop/DesktopEntryLine.h"

#include "platform/linux/files/Utf8Decoder.h"

#include <QChar>
#include <QList>

namespace zelmo::DesktopEntryLine {

namespace {

constexpr bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

constexpr bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

constexpr bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// GLib steps over stray continuation bytes here.
constexpr bool mayFollowGroup(char c) {
    return c == ' ' || c == '\t' || isContinuation(c);
}

constexpr bool isLocaleCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
           c == '.' || c == '@';
}

bool isLetterOrNumber(std::string_view utf8) {
    QStringDecoder decoder = utf8Decoder();
    const QString decoded = decoder.decode(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
    const QList<uint> characters = decoded.toUcs4();
    return !decoder.hasError() && characters.size() == 1 &&
           QChar::isLetterOrNumber(static_cast<char32_t>(characters.first()));
}

// The number of bytes that a character with this first byte has, 0 when none begins with it.
constexpr std::size_t characterLength(char first) {
    const auto byte = static_cast<unsigned char>(first);
    if (byte < 0x80)
        return 1;
    if (byte < 0xC0 || byte >= 0xF8)
        return 0;
    return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// Letters and digits of any script, in UTF-8, and the signs that join the parts of a locale. Stray
// continuation bytes don't count; GLib steps over them.
bool isLocale(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = characterLength(text.front());
        if (length == 1 ? !isLocaleCharacter(text.front()) : !isLetterOrNumber(text.substr(0, length)))
            return false;
        text.remove_prefix(std::min(length, text.size()));
        while (!text.empty() && isContinuation(text.front()))
            text.remove_prefix(1);
    }
    return true;
}

template <typename Predicate>
constexpr std::array<bool, 256> tableOf(Predicate predicate) {
    std::array<bool, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = predicate(static_cast<char>(i));
    return table;
}

constexpr auto plainKeyTable = tableOf([](char c) { return c > ' ' && c < 0x7F && c != '=' && c != '[' && c != ']'; });
constexpr auto localeTable = tableOf(isLocaleCharacter);

// The end of the characters at `position` that are in the table.
std::size_t skip(std::string_view text, std::size_t position, const std::array<bool, 256>& table) {
    while (position < text.size() && table[static_cast<unsigned char>(text[position])])
        ++position;
    return position;
}

// A line that needs no closer look: a key without spaces, perhaps an ASCII locale, and the sign. Nearly
// all lines are of this kind, and most of them are translations that are not wanted.
std::optional<Pair> plainPair(std::string_view line) {
    const std::size_t keyEnd = skip(line, 0, plainKeyTable);
    if (keyEnd == 0 || keyEnd == line.size())
        return std::nullopt;
    if (line[keyEnd] == '=')
        return Pair{line.substr(0, keyEnd), std::nullopt, line.substr(keyEnd + 1)};
    if (line[keyEnd] != '[')
        return std::nullopt;
    const std::size_t localeEnd = skip(line, keyEnd + 1, localeTable);
    if (localeEnd + 1 >= line.size() || line[localeEnd] != ']' || line[localeEnd + 1] != '=')
        return std::nullopt;
    return Pair{line.substr(0, keyEnd), line.substr(keyEnd + 1, localeEnd - keyEnd - 1), line.substr(localeEnd + 2)};
}

// Any other line that is a pair.
std::optional<Pair> unusualPair(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == 0 || equals == std::string_view::npos)
        return std::nullopt;
    std::string_view text = line.substr(0, equals);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    const std::string_view value = line.substr(equals + 1);

    const std::size_t bracket = text.find_first_of("[]");
    const std::string_view key = text.substr(0, bracket);
    if (key.empty() || key.front() == ' ' || key.back() == ' ')
        return std::nullopt;
    if (bracket == std::string_view::npos)
        return Pair{key, std::nullopt, value};
    if (text[bracket] != '[' || text.back() != ']')
        return std::nullopt;
    const std::string_view locale = text.substr(bracket + 1, text.size() - bracket - 2);
    if (!isLocale(locale))
        return std::nullopt;
    return Pair{key, locale, value};
}

} // namespace

std::string_view withoutLeadingSpace(std::string_view text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

std::optional<std::string_view> groupName(std::string_view line) {
    if (!line.starts_with('['))
        return std::nullopt;
    const std::size_t close = line.find(']');
    if (close == std::string_view::npos)
        return std::nullopt;
    const std::string_view rest = line.substr(close + 1);
    if (!std::all_of(rest.cbegin(), rest.cend(), mayFollowGroup))
        return std::nullopt;
    return line.substr(1, close - 1);
}

bool isValidGroupName(std::string_view name) {
    return !name.empty() && std::none_of(name.cbegin(), name.cend(), [](char c) { return c == '[' || isControl(c); });
}

std::optional<Pair> pair(std::string_view line) {
    const std::optional<Pair> plain = plainPair(line);
    return plain ? plain : unusualPair(line);
}

} // namespace zelmo::DesktopEntryLine
