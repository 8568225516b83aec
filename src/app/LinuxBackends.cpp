#include "app/LinuxBackends.h"

#include "app/RendererChoice.h"
#include "catalog/BundleSource.h"
#include "platform/linux/freedesktop/DesktopEntrySource.h"
#include "platform/linux/icons/IconThemeName.h"
#include "platform/linux/x11/QtX11Connection.h"

#include <QDir>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QStandardPaths>

namespace zelmo {

namespace {

std::unique_ptr<IconThemeIndex> makeIconThemeIndex() {
    const IconEnvironment environment = IconEnvironment::read([](const char* name) { return qgetenv(name); });
    return std::make_unique<IconThemeIndex>(IconFolders::of(environment), IconThemeName::chosen(environment));
}

// Only beside windows of the same server: drawn elsewhere, the wall has nothing to do with its windows.
std::unique_ptr<X11Connection> openConnection() {
    return QtX11Connection::current() ? X11Connection::open() : nullptr;
}

// The user's own first.
QList<QByteArray> configFolders() {
    QList<QByteArray> folders;
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation))
        folders.append(QFile::encodeName(folder));
    return folders;
}

QList<FileUrl> bundleFolders() {
    return BundleSource::standardRoots(FileUrl::fromNativePath(QFile::encodeName(QDir::homePath())));
}

} // namespace

LinuxBackends::LinuxBackends()
    : preferencesFile(PlistPreferencesFile::standardFile()), identifier(bundleFolders()), connection(openConnection()),
      motion(connection.get(), configFolders()), startupNotifier(connection.get()),
      workspace(connection.get(), identifier), launcher(bundleReader, startupNotifier, {updateDelayVariable}),
      fontFaces(QGuiApplication::font().family()), iconSource(makeIconThemeIndex()),
      colorScheme(BusAddresses::fromEnvironment().session), programActivation(connection.get()),
      presentation(connection.get()) {
    presence.setChangeHandler([this] { workspace.setUserPresent(presence.isPresent()); });
}

AppScanner LinuxBackends::makeScanner() {
    std::vector<std::unique_ptr<ApplicationSource>> sources;
    sources.push_back(std::make_unique<BundleSource>(bundleFolders(), bundleReader));
    sources.push_back(
        std::make_unique<DesktopEntrySource>(DesktopEntrySettings::fromEnvironment(), [this](ApplicationIndex index) {
            identifier.setIndex(std::move(index));
        }));
    return AppScanner(std::move(sources));
}

} // namespace zelmo
