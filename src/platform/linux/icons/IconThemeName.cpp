#include "platform/linux/icons/IconThemeName.h"

#include "platform/linux/icons/ThemeKeyFile.h"

namespace zelmo {

namespace {

std::optional<QByteArray> setting(const QList<QByteArray>& folders, const QByteArray& file, const QByteArray& group,
                                  const QByteArray& key) {
    for (const QByteArray& folder : folders) {
        const std::optional<ThemeKeyFile> settings = ThemeKeyFile::read(folder + '/' + file);
        std::optional<QByteArray> value = settings ? settings->value(group, key) : std::nullopt;
        if (value && value->size() > 1 && value->startsWith('"') && value->endsWith('"'))
            value = value->sliced(1, value->size() - 2);
        if (value && isFolderName(*value))
            return value;
    }
    return std::nullopt;
}

} // namespace

bool isFolderName(const QByteArray& name) {
    return !name.isEmpty() && !name.startsWith('.') && !name.contains('/') && !name.contains('\0');
}

std::optional<QByteArray> IconThemeName::chosen(const IconEnvironment& environment) {
    if (environment.desktops.contains("KDE")) {
        // The look that comes with a whole-desktop design is stored beside what the user chose alone.
        QList<QByteArray> folders = environment.configFolders;
        if (!folders.isEmpty())
            folders.insert(1, folders.first() + "/kdedefaults");
        if (auto theme = setting(folders, "kdeglobals", "Icons", "Theme"))
            return theme;
    }
    for (const char* file : {"gtk-4.0/settings.ini", "gtk-3.0/settings.ini"}) {
        if (auto theme = setting(environment.configFolders, file, "Settings", "gtk-icon-theme-name"))
            return theme;
    }
    return std::nullopt;
}

} // namespace zelmo
