#include "platform/linux/desktop/KdeAnimations.h"

#include "platform/linux/icons/ThemeKeyFile.h"

namespace zelmo {

namespace {

std::optional<bool> fromFile(const QByteArray& path) {
    const std::optional<ThemeKeyFile> settings = ThemeKeyFile::read(path);
    const std::optional<QByteArray> value = settings ? settings->value("KDE", "AnimationDurationFactor") : std::nullopt;
    bool isNumber = false;
    const double factor = value ? value->toDouble(&isNumber) : 0;
    if (!isNumber || !(factor >= 0))
        return std::nullopt;
    return factor == 0;
}

} // namespace

std::optional<bool> kdeReducesMotion(const QList<QByteArray>& configFolders) {
    QList<QByteArray> folders = configFolders;
    // The settings that come with a whole-desktop design are beside what the user chose alone.
    if (!folders.isEmpty())
        folders.insert(1, folders.first() + "/kdedefaults");
    for (const QByteArray& folder : std::as_const(folders)) {
        if (const auto reduces = fromFile(folder + "/kdeglobals"))
            return reduces;
    }
    return std::nullopt;
}

} // namespace zelmo
