#include "app/LinuxBackends.h"

#include "app/RendererChoice.h"
#include "catalog/BundleSource.h"
#include "platform/linux/freedesktop/DesktopEntrySource.h"
#include "platform/linux/icons/IconThemeName.h"

#include <QDir>
#include <QFile>

namespace zelmo {

namespace {

std::unique_ptr<IconThemeIndex> makeIconThemeIndex() {
    const IconEnvironment environment = IconEnvironment::read([](const char* name) { return qgetenv(name); });
    return std::make_unique<IconThemeIndex>(IconFolders::of(environment), IconThemeName::chosen(environment));
}

} // namespace

LinuxBackends::LinuxBackends()
    : preferencesFile(PlistPreferencesFile::standardFile()), workspace(bundleReader, {updateDelayVariable}),
      iconSource(makeIconThemeIndex()) {}

AppScanner LinuxBackends::makeScanner() const {
    const FileUrl home = FileUrl::fromNativePath(QFile::encodeName(QDir::homePath()));
    std::vector<std::unique_ptr<ApplicationSource>> sources;
    sources.push_back(std::make_unique<BundleSource>(BundleSource::standardRoots(home), bundleReader));
    sources.push_back(std::make_unique<DesktopEntrySource>(DesktopEntrySettings::fromEnvironment()));
    return AppScanner(std::move(sources));
}

} // namespace zelmo
