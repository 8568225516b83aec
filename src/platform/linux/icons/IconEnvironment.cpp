#include "platform/linux/icons/IconEnvironment.h"

namespace zelmo {

namespace {

void appendFolder(QList<QByteArray>& folders, QByteArray folder) {
    while (folder.size() > 1 && folder.endsWith('/'))
        folder.chop(1);
    if (folder.startsWith('/') && !folders.contains(folder))
        folders.append(folder);
}

QList<QByteArray> folderList(const QByteArray& own, const QByteArray& ownFallback, const QByteArray& shared,
                             const QByteArray& sharedFallback) {
    QList<QByteArray> folders;
    appendFolder(folders, own.startsWith('/') ? own : ownFallback);
    for (const QByteArray& folder : (shared.isEmpty() ? sharedFallback : shared).split(':'))
        appendFolder(folders, folder);
    return folders;
}

} // namespace

IconEnvironment IconEnvironment::read(const std::function<QByteArray(const char* name)>& variable) {
    IconEnvironment environment;
    if (const QByteArray home = variable("HOME"); home.startsWith('/'))
        environment.home = home;
    const auto belowHome = [&](const char* path) {
        return environment.home.isEmpty() ? QByteArray() : environment.home + path;
    };
    environment.dataFolders = folderList(variable("XDG_DATA_HOME"), belowHome("/.local/share"),
                                         variable("XDG_DATA_DIRS"), "/usr/local/share:/usr/share");
    environment.configFolders =
        folderList(variable("XDG_CONFIG_HOME"), belowHome("/.config"), variable("XDG_CONFIG_DIRS"), "/etc/xdg");
    environment.desktops = variable("XDG_CURRENT_DESKTOP").split(':');
    return environment;
}

IconFolders IconFolders::of(const IconEnvironment& environment) {
    IconFolders folders;
    if (!environment.home.isEmpty())
        appendFolder(folders.themed, environment.home + "/.icons");
    for (const QByteArray& folder : environment.dataFolders)
        appendFolder(folders.themed, folder + "/icons");
    // The standard has the system's alone, but what is installed elsewhere has one of its own.
    for (const QByteArray& folder : environment.dataFolders)
        appendFolder(folders.plain, folder + "/pixmaps");
    appendFolder(folders.plain, "/usr/share/pixmaps");
    return folders;
}

} // namespace zelmo
