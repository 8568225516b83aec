#pragma once

#include "platform/linux/freedesktop/LocaleNames.h"

#include <QByteArray>
#include <QString>
#include <QVarLengthArray>

#include <array>
#include <optional>
#include <string_view>

namespace zelmo {

enum class DesktopEntryKey {
    type,
    name,
    icon,
    exec,
    tryExec,
    hidden,
    noDisplay,
    onlyShowIn,
    notShowIn,
    categories,
    startupWmClass,
    terminal,
    dBusActivatable,
};

// The [Desktop Entry] group of one .desktop file, of which it keeps the keys that a launcher needs
// and the translations that this person can read. It holds on to the file's bytes and reads a value
// when it is asked for. A value; may be made on any thread.
//
// A file that breaks the syntax anywhere gives nothing: GLib, through which entries are started,
// refuses the whole file too, and an entry that can't be started must not be shown.
class DesktopEntryFile {
public:
    static std::optional<DesktopEntryFile> parse(QByteArray bytes, const LocaleNames& locales);

    // All are absent when the key is, or when its value can't be understood.
    std::optional<QByteArray> value(DesktopEntryKey key) const;
    std::optional<QList<QByteArray>> list(DesktopEntryKey key) const;
    bool flag(DesktopEntryKey key) const;
    // The best translation; for the keys that have any, `name` and `icon`.
    std::optional<QString> localizedText(DesktopEntryKey key) const;

private:
    friend class DesktopEntryParser;
    using RawValue = std::optional<std::string_view>;
    static constexpr std::size_t keyCount = static_cast<std::size_t>(DesktopEntryKey::dBusActivatable) + 1;

    DesktopEntryFile(QByteArray bytes, qsizetype localeCount);

    const RawValue& raw(DesktopEntryKey key) const { return m_values[static_cast<std::size_t>(key)]; }

    QByteArray m_bytes; // what the views below look at
    std::array<RawValue, keyCount> m_values;
    // The translations by rank: first those of the name, then those of the icon.
    QVarLengthArray<RawValue, 24> m_translations;
};

} // namespace zelmo
