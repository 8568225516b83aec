#include "platform/linux/freedesktop/DesktopEntryFile.h"

#include "platform/linux/freedesktop/DesktopEntryLine.h"
#include "platform/linux/freedesktop/DesktopEntryValue.h"

namespace zelmo {

namespace {

constexpr std::string_view entryGroup = "Desktop Entry";

struct KeyRow {
    std::string_view text;
    DesktopEntryKey key;
};

constexpr std::array keyTable{
    KeyRow{"Type", DesktopEntryKey::type},
    KeyRow{"Name", DesktopEntryKey::name},
    KeyRow{"Icon", DesktopEntryKey::icon},
    KeyRow{"Exec", DesktopEntryKey::exec},
    KeyRow{"TryExec", DesktopEntryKey::tryExec},
    KeyRow{"Hidden", DesktopEntryKey::hidden},
    KeyRow{"NoDisplay", DesktopEntryKey::noDisplay},
    KeyRow{"OnlyShowIn", DesktopEntryKey::onlyShowIn},
    KeyRow{"NotShowIn", DesktopEntryKey::notShowIn},
    KeyRow{"Categories", DesktopEntryKey::categories},
    KeyRow{"StartupWMClass", DesktopEntryKey::startupWmClass},
    KeyRow{"Terminal", DesktopEntryKey::terminal},
    KeyRow{"DBusActivatable", DesktopEntryKey::dBusActivatable},
};

std::optional<DesktopEntryKey> keyFromText(std::string_view text) {
    for (const KeyRow& row : keyTable) {
        if (row.text == text)
            return row.key;
    }
    return std::nullopt;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lowerCase) {
    return std::equal(text.cbegin(), text.cend(), lowerCase.cbegin(), lowerCase.cend(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; });
}

} // namespace

// Goes over the lines of a file once. Every line of every group is checked, only those of the
// [Desktop Entry] group are kept. Lives inside `DesktopEntryFile::parse`.
class DesktopEntryParser {
public:
    DesktopEntryParser(DesktopEntryFile& file, const LocaleNames& locales) : m_file(file), m_locales(locales) {}

    // False when the file breaks the syntax or starts with another group.
    bool run() {
        std::string_view rest(m_file.m_bytes.constData(), static_cast<std::size_t>(m_file.m_bytes.size()));
        m_hasNul = rest.find('\0') != std::string_view::npos;
        while (!rest.empty()) {
            const std::size_t end = rest.find('\n');
            std::string_view line = rest.substr(0, end);
            // A last line without an end keeps its carriage return, which then belongs to the value.
            if (end != std::string_view::npos && line.ends_with('\r'))
                line.remove_suffix(1);
            if (!readLine(line))
                return false;
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        }
        return m_place == Place::entryGroup || m_place == Place::otherGroup;
    }

private:
    enum class Place { beforeGroups, entryGroup, otherGroup };

    bool readLine(std::string_view line) {
        line = DesktopEntryLine::withoutLeadingSpace(line);
        const std::string_view wholeLine = line;
        // Texts end at a NUL byte; what follows it on the line doesn't exist.
        if (m_hasNul)
            line = line.substr(0, line.find('\0'));
        m_isCutOff = line.size() != wholeLine.size();
        if (line.empty() || line.front() == '#')
            return true;
        if (const std::optional<std::string_view> group = DesktopEntryLine::groupName(line)) {
            // GLib looks for the last bracket behind a NUL byte too; the first one is a part of the name then.
            return wholeLine.rfind(']') < line.size() && startGroup(*group);
        }
        if (m_place == Place::beforeGroups)
            return false;
        const std::optional<DesktopEntryLine::Pair> pair = DesktopEntryLine::pair(line);
        return pair && keepPair(*pair);
    }

    bool startGroup(std::string_view group) {
        if (!DesktopEntryLine::isValidGroupName(group) || (m_place == Place::beforeGroups && group != entryGroup))
            return false;
        // A group may be opened again and then goes on.
        m_place = group == entryGroup ? Place::entryGroup : Place::otherGroup;
        return true;
    }

    // False for an encoding that is not ours. Of two lines with the same key the later one counts.
    bool keepPair(const DesktopEntryLine::Pair& pair) {
        if (m_place != Place::entryGroup)
            return true;
        if (pair.locale) {
            if (pair.key == "Name")
                keepTranslation(DesktopEntryKey::name, pair);
            else if (pair.key == "Icon")
                keepTranslation(DesktopEntryKey::icon, pair);
            return true;
        }
        const std::string_view value = DesktopEntryLine::withoutLeadingSpace(pair.value);
        if (pair.key == "Encoding")
            return !m_isCutOff && equalsIgnoringCase(value, "utf-8");
        if (const std::optional<DesktopEntryKey> key = keyFromText(pair.key))
            m_file.m_values[static_cast<std::size_t>(*key)] = value;
        return true;
    }

    void keepTranslation(DesktopEntryKey key, const DesktopEntryLine::Pair& pair) {
        const qsizetype rank = m_locales.rankOf(*pair.locale);
        if (rank < 0)
            return;
        const qsizetype offset = key == DesktopEntryKey::icon ? m_locales.names().size() : 0;
        m_file.m_translations[offset + rank] = DesktopEntryLine::withoutLeadingSpace(pair.value);
    }

    DesktopEntryFile& m_file;
    const LocaleNames& m_locales;
    Place m_place = Place::beforeGroups;
    bool m_hasNul = false;
    bool m_isCutOff = false; // the line holds a NUL byte, which GLib counts as a part of the encoding's name
};

DesktopEntryFile::DesktopEntryFile(QByteArray bytes, qsizetype localeCount)
    : m_bytes(std::move(bytes)), m_translations(2 * localeCount) {}

std::optional<DesktopEntryFile> DesktopEntryFile::parse(QByteArray bytes, const LocaleNames& locales) {
    std::optional<DesktopEntryFile> file(DesktopEntryFile(std::move(bytes), locales.names().size()));
    if (!DesktopEntryParser(*file, locales).run())
        return std::nullopt;
    return file;
}

std::optional<QByteArray> DesktopEntryFile::value(DesktopEntryKey key) const {
    return raw(key) ? DesktopEntryValue::bytes(*raw(key)) : std::nullopt;
}

std::optional<QList<QByteArray>> DesktopEntryFile::list(DesktopEntryKey key) const {
    return raw(key) ? DesktopEntryValue::list(*raw(key)) : std::nullopt;
}

bool DesktopEntryFile::flag(DesktopEntryKey key) const {
    return raw(key) && DesktopEntryValue::flag(*raw(key));
}

std::optional<QString> DesktopEntryFile::localizedText(DesktopEntryKey key) const {
    if (key == DesktopEntryKey::name || key == DesktopEntryKey::icon) {
        const qsizetype count = m_translations.size() / 2;
        const qsizetype offset = key == DesktopEntryKey::icon ? count : 0;
        for (qsizetype rank = 0; rank < count; ++rank) {
            const RawValue& translation = m_translations[offset + rank];
            if (!translation)
                continue;
            if (std::optional<QString> text = DesktopEntryValue::text(*translation))
                return text;
        }
    }
    return raw(key) ? DesktopEntryValue::text(*raw(key)) : std::nullopt;
}

} // namespace zelmo
