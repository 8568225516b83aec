#include "platform/linux/launching/GioLauncher.h"

#include "catalog/BundleReader.h"
#include "platform/linux/launching/ControlGroups.h"
#include "platform/linux/launching/LaunchContext.h"
#include "platform/linux/launching/SessionBus.h"

#include <array>
#include <filesystem>
#include <memory>

#include <gio/gdesktopappinfo.h>
#include <unistd.h>

namespace zelmo {

namespace fs = std::filesystem;

namespace {

constexpr const char* tokenVariable = "DESKTOP_STARTUP_ID";

// Standard input is empty in any case; GLib closes everything else.
constexpr auto noOpenFiles = static_cast<GSpawnFlags>(G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);

// By these a program finds out who started it and how.
QList<QByteArray> startVariables() {
    return {tokenVariable,
            "XDG_ACTIVATION_TOKEN",
            "GIO_LAUNCHED_DESKTOP_FILE",
            "GIO_LAUNCHED_DESKTOP_FILE_PID",
            "INVOCATION_ID",
            "JOURNAL_STREAM",
            "NOTIFY_SOCKET",
            "LISTEN_PID",
            "LISTEN_FDS",
            "LISTEN_FDNAMES",
            "SYSTEMD_EXEC_PID",
            "WATCHDOG_PID",
            "WATCHDOG_USEC"};
}

// In the new process, of which the folder is set by now. `folder` is another one to go to, or null.
void enterNewSession(gpointer folder) {
    setsid();
    // Where that can't be entered, it stays where it is.
    if (folder && chdir(static_cast<const char*>(folder)) != 0)
        return;
}

// Where the entry names no folder, GIO leaves the program in the one that we happen to be in.
bool namesFolder(GDesktopAppInfo* entry) {
    const std::unique_ptr<gchar, decltype(&g_free)> folder(
        g_desktop_app_info_get_string(entry, G_KEY_FILE_DESKTOP_KEY_PATH), g_free);
    return folder && *folder != '\0';
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

GioLauncher::GioLauncher(const BundleReader& bundleReader, StartupNotifier& notifier,
                         const QList<QByteArray>& privateVariables)
    : m_bundleReader(bundleReader), m_notifier(notifier), m_privateVariables(startVariables() + privateVariables) {}

void GioLauncher::openApplication(const FileUrl& application) {
    if (application.pathExtension() == QLatin1StringView("desktop"))
        openDesktopEntry(application);
    else
        openBundle(application);
}

void GioLauncher::openDesktopEntry(const FileUrl& entry) const {
    const GObjectPointer<GDesktopAppInfo> information(
        g_desktop_app_info_new_from_filename(entry.nativePath().constData()));
    if (!information)
        return;
    const StartupDescription program{.name = g_app_info_get_name(G_APP_INFO(information.get())),
                                     .entryId = entry.lastPathComponent().toUtf8(),
                                     .startupClass = g_desktop_app_info_get_startup_wm_class(information.get())};
    const auto context = makeLaunchContext(m_notifier, program, m_privateVariables);
    // For the programs for which GIO asks for no announced one.
    if (const QByteArray token = m_notifier.token(program); !token.isEmpty())
        g_app_launch_context_setenv(context.get(), tokenVariable, token.constData());
    // The connection that GIO then launches with, and that stays as it is while an activation is not answered.
    const auto bus = sessionBus();
    QByteArray name = entry.stem().toUtf8();
    g_desktop_app_info_launch_uris_as_manager(
        information.get(), nullptr, context.get(), static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | noOpenFiles),
        enterNewSession, namesFolder(information.get()) ? nullptr : const_cast<gchar*>(g_get_home_dir()),
        [](GDesktopAppInfo*, GPid process, gpointer data) {
            moveToOwnControlGroup(process, *static_cast<QByteArray*>(data));
        },
        &name, nullptr);
}

void GioLauncher::openBundle(const FileUrl& bundle) const {
    const auto information = m_bundleReader.read(bundle);
    const QString name = information && information->executable ? *information->executable : bundle.stem();
    const fs::path folder(bundle.nativePath().toStdString());
    const std::string nativeName = FileUrl::fromPath(name).nativePath().toStdString();
    for (const char* place : {"Contents/Linux", "Contents/MacOS"}) {
        const fs::path executable = executableInside(folder, folder / place / nativeName);
        if (executable.empty())
            continue;
        spawn(executable.native(), bundle);
        return;
    }
}

// Bytes from end to end: the path need not be Unicode.
void GioLauncher::spawn(std::string executable, const FileUrl& bundle) const {
    const StartupDescription program{.name = bundle.stem().toUtf8(), .entryId = {}, .startupClass = {}};
    const auto context = makeLaunchContext(m_notifier, program, m_privateVariables);
    if (const QByteArray token = m_notifier.token(program); !token.isEmpty())
        g_app_launch_context_setenv(context.get(), tokenVariable, token.constData());
    const std::array<gchar*, 2> arguments{executable.data(), nullptr};
    gchar** environment = g_app_launch_context_get_environment(context.get());
    GPid process = 0;
    if (g_spawn_async(g_get_home_dir(), const_cast<gchar**>(arguments.data()), environment, noOpenFiles,
                      enterNewSession, nullptr, &process, nullptr))
        moveToOwnControlGroup(process, program.name);
    g_strfreev(environment);
}

} // namespace zelmo
