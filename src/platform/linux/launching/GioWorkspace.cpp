#include "platform/linux/launching/GioWorkspace.h"

#include "catalog/BundleReader.h"

#include <array>
#include <filesystem>
#include <memory>

#include <gio/gdesktopappinfo.h>
#include <unistd.h>

namespace zelmo {

namespace fs = std::filesystem;

namespace {

struct ObjectDeleter {
    void operator()(void* object) const { g_object_unref(object); }
};

void enterNewSession(gpointer) {
    setsid();
}

// The file, links resolved, when it lies inside the folder and may be executed; else an empty path.
fs::path executableInside(const fs::path& folder, const fs::path& file) {
    std::error_code error;
    const fs::path realFolder = fs::canonical(folder, error);
    if (error)
        return {};
    fs::path realFile = fs::canonical(file, error);
    if (error || !fs::is_regular_file(realFile, error) || access(realFile.c_str(), X_OK) != 0)
        return {};
    const auto [end, ignored] = std::mismatch(realFolder.begin(), realFolder.end(), realFile.begin(), realFile.end());
    return end == realFolder.end() ? realFile : fs::path();
}

} // namespace

GioWorkspace::GioWorkspace(const BundleReader& bundleReader, QList<QByteArray> privateVariables)
    : m_bundleReader(bundleReader), m_privateVariables(std::move(privateVariables)) {}

void GioWorkspace::openApplication(const FileUrl& application) {
    if (application.pathExtension() == QLatin1StringView("desktop"))
        openDesktopEntry(application);
    else
        openBundle(application);
}

void GioWorkspace::openDesktopEntry(const FileUrl& entry) const {
    const std::unique_ptr<GDesktopAppInfo, ObjectDeleter> information(
        g_desktop_app_info_new_from_filename(entry.nativePath().constData()));
    if (!information)
        return;
    const std::unique_ptr<GAppLaunchContext, ObjectDeleter> context(g_app_launch_context_new());
    for (const QByteArray& variable : m_privateVariables)
        g_app_launch_context_unsetenv(context.get(), variable.constData());
    g_desktop_app_info_launch_uris_as_manager(information.get(), nullptr, context.get(), G_SPAWN_SEARCH_PATH,
                                              enterNewSession, nullptr, nullptr, nullptr, nullptr);
}

void GioWorkspace::openBundle(const FileUrl& bundle) const {
    const auto information = m_bundleReader.read(bundle);
    const QString name = information && information->executable ? *information->executable : bundle.stem();
    const fs::path folder(bundle.nativePath().toStdString());
    const std::string nativeName = FileUrl::fromPath(name).nativePath().toStdString();
    for (const char* place : {"Contents/Linux", "Contents/MacOS"}) {
        const fs::path executable = executableInside(folder, folder / place / nativeName);
        if (executable.empty())
            continue;
        // Bytes from end to end: the path need not be Unicode.
        const std::array arguments{const_cast<gchar*>(executable.c_str()), static_cast<gchar*>(nullptr)};
        gchar** environment = g_get_environ();
        for (const QByteArray& variable : m_privateVariables)
            environment = g_environ_unsetenv(environment, variable.constData());
        g_spawn_async(g_get_home_dir(), const_cast<gchar**>(arguments.data()), environment, G_SPAWN_DEFAULT,
                      enterNewSession, nullptr, nullptr, nullptr);
        g_strfreev(environment);
        return;
    }
}

} // namespace zelmo
