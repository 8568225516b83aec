#pragma once

#include "platform/linux/freedesktop/DesktopEntryFile.h"
#include "platform/linux/freedesktop/ExecCommand.h"

#include <glib.h>

#include <memory>

namespace zelmo::test {

// What GLib makes of an entry. GIO starts entries by it, so that both have to read every file alike.
class KeyFileOracle {
public:
    // As GIO opens an entry; nothing when it refuses the file.
    static std::optional<KeyFileOracle> load(const QByteArray& bytes) {
        KeyFileOracle oracle;
        if (!g_key_file_load_from_data(oracle.m_file.get(), bytes.constData(), static_cast<gsize>(bytes.size()),
                                       G_KEY_FILE_NONE, nullptr))
            return std::nullopt;
        const Owned<char> start(g_key_file_get_start_group(oracle.m_file.get()));
        return start && QByteArrayView(start.get()) == QByteArrayView(group) ? std::optional(std::move(oracle))
                                                                             : std::nullopt;
    }

    std::optional<QByteArray> value(const char* key) const {
        return copy(g_key_file_get_string(m_file.get(), group, key, nullptr));
    }
    std::optional<QList<QByteArray>> list(const char* key) const {
        return copy(g_key_file_get_string_list(m_file.get(), group, key, nullptr, nullptr));
    }
    bool flag(const char* key) const { return g_key_file_get_boolean(m_file.get(), group, key, nullptr) != 0; }
    std::optional<QByteArray> localizedText(const char* key) const {
        return copy(g_key_file_get_locale_string(m_file.get(), group, key, nullptr, nullptr));
    }

    static std::optional<QList<QByteArray>> words(const QByteArray& command) {
        int count = 0;
        char** arguments = nullptr;
        if (!g_shell_parse_argv(command.constData(), &count, &arguments, nullptr))
            return std::nullopt;
        return copy(arguments);
    }

private:
    struct Freer {
        void operator()(GKeyFile* file) const { g_key_file_unref(file); }
        void operator()(char* text) const { g_free(text); }
        void operator()(char** texts) const { g_strfreev(texts); }
    };
    template <typename T>
    using Owned = std::unique_ptr<T, Freer>;

    static constexpr const char* group = "Desktop Entry";

    static std::optional<QByteArray> copy(char* text) {
        const Owned<char> owner(text);
        return text ? std::optional(QByteArray(text)) : std::nullopt;
    }
    static std::optional<QList<QByteArray>> copy(char** texts) {
        const Owned<char*> owner(texts);
        if (!texts)
            return std::nullopt;
        QList<QByteArray> list;
        for (; *texts; ++texts)
            list.append(QByteArray(*texts));
        return list;
    }

    Owned<GKeyFile> m_file = Owned<GKeyFile>(g_key_file_new());
};

// What GLib and this program read differently in the file, null when they read it alike. The locales are those of the
// environment, which is what GLib knows.
inline const char* differenceFromGLib(const QByteArray& bytes, const LocaleNames& locales) {
    using enum DesktopEntryKey;
    constexpr std::array<std::pair<DesktopEntryKey, const char*>, 13> keys{{{type, "Type"},
                                                                            {name, "Name"},
                                                                            {icon, "Icon"},
                                                                            {exec, "Exec"},
                                                                            {tryExec, "TryExec"},
                                                                            {hidden, "Hidden"},
                                                                            {noDisplay, "NoDisplay"},
                                                                            {onlyShowIn, "OnlyShowIn"},
                                                                            {notShowIn, "NotShowIn"},
                                                                            {categories, "Categories"},
                                                                            {startupWmClass, "StartupWMClass"},
                                                                            {terminal, "Terminal"},
                                                                            {dBusActivatable, "DBusActivatable"}}};
    const auto expected = KeyFileOracle::load(bytes);
    const auto file = DesktopEntryFile::parse(bytes, locales);
    if (file.has_value() != expected.has_value())
        return "whether the file is one";
    if (!file)
        return nullptr;
    for (const auto& [key, text] : keys) {
        if (file->value(key) != expected->value(text) || file->list(key) != expected->list(text) ||
            file->flag(key) != expected->flag(text))
            return text;
    }
    for (const auto& [key, text] : {keys[1], keys[2]}) {
        const std::optional<QString> localized = file->localizedText(key);
        if ((localized ? std::optional(localized->toUtf8()) : std::nullopt) != expected->localizedText(text))
            return text;
    }
    return nullptr;
}

// A command is a text of C, which ends at a zero byte.
inline bool readsCommandAsGLib(const QByteArray& bytes) {
    const QByteArray command(bytes.constData());
    const auto expected = KeyFileOracle::words(command);
    const auto program = ExecCommand::program(command);
    return ExecCommand::words(command, command.size() + 1) == expected &&
           program == (expected ? std::optional(expected->first()) : std::nullopt);
}

} // namespace zelmo::test
