#pragma once

#include "support/Monitors.h"
#include "support/XDisplay.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QThread>

#include <functional>
#include <memory>
#include <vector>

namespace zelmo::test {

// Which shortcuts openbox has: its own, one of which is Alt and Space, or none.
enum class WindowManagerShortcuts { none, standard };

// Whose programs these are: of the user who runs the tests, or of one who is not root in any case.
enum class DesktopUser { same, ordinary };

// Whether the X server lets programs share memory with it; across a network it does not.
enum class SharedMemory { offered, missing };

// What else runs on a desktop beside its programs.
enum class DesktopPart { windowManager, compositor, bus };

// Where a bus that is started again is to be found: where programs know it, or where they can't.
enum class BusPlace { same, another };

// What puts the windows on the screen: the X server, or picom, from the contents of each.
enum class Compositor { none, picom };

struct DesktopOptions {
    QSize screen{1280, 800};
    int depth = 24;
    SharedMemory sharedMemory = SharedMemory::offered;
    Monitors monitors = Monitors::one;
    // The program that manages windows; none when empty.
    QString windowManager = QStringLiteral("openbox");
    WindowManagerShortcuts shortcuts = WindowManagerShortcuts::none;
    Compositor compositor = Compositor::none;
    DesktopUser user = DesktopUser::same;
};

// A desktop of one's own: an X server, a session bus, a window manager and a home folder that only
// the programs started here know. Ends all of it, and what was started on it, when it goes.
class DesktopSession {
public:
    // Null, with a warning that says why, when a part of it does not start.
    static std::unique_ptr<DesktopSession> start(const DesktopOptions& options = {});
    // Not every system has it.
    static bool hasCompositor();
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    XDisplay& display() const { return *m_display; }
    QString displayName() const { return m_displayName; }
    QString home() const { return m_home.path(); }
    QString windowManagerName() const { return m_windowManagerName; }
    // The window manager sleeps until it is woken, in a moment in which nobody waits for it.
    void stopWindowManager() const;
    void continueWindowManager() const;
    // As when it crashes.
    void kill(DesktopPart part);
    // After that, until it is ready to serve.
    bool startAgain(DesktopPart part, BusPlace place = BusPlace::same);
    // For programs that are started on this desktop from now on.
    QProcessEnvironment& environment() { return m_environment; }
    // As when the user logs out in the hard way.
    void endServer();

    // Writes a file below the home folder, with its folders.
    void writeFile(const QString& path, const QByteArray& contents) const;
    void writeProgram(const QString& path, const QByteArray& contents) const;
    // An entry in the user's own folder that, when launched, leaves a file of the entry's name in `launched()`.
    void installEntry(const QString& name, const QByteArray& moreLines = {}) const;
    QStringList launched() const;

    // Starts a program and gives it up to the session, which ends it.
    QProcess& startProgram(const QString& program, const QStringList& arguments = {});

    // Waits until the condition holds, handling events meanwhile; false after 15 seconds.
    static bool waitFor(const std::function<bool()>& condition);
    // Waits until looks at something give the same for some frames.
    template <typename Look>
    static bool waitUntilSteady(const Look& look) {
        auto last = look();
        int equal = 0;
        return waitFor([&] {
            QThread::msleep(30);
            auto next = look();
            equal = next == last ? equal + 1 : 0;
            last = std::move(next);
            return equal >= 4;
        });
    }

private:
    DesktopSession() = default;

    bool startServer(const DesktopOptions& options);
    // At an address; at a new one when it is empty.
    bool startBus(BusPlace place);
    bool startWindowManager(const QString& program);
    bool startCompositor();
    bool startPart(DesktopPart part, BusPlace place);
    QProcess* processOf(DesktopPart part) const;
    void prepare(QProcess& process) const;
    void giveToUser(const QString& path) const;
    std::unique_ptr<QProcess> spawn(const QString& program, const QStringList& arguments) const;

    QTemporaryDir m_home;
    DesktopUser m_user = DesktopUser::same;
    QProcessEnvironment m_environment;
    QString m_displayName;
    QString m_windowManagerName;
    // Where services find their own data; nothing means the system's.
    QString m_serviceDataFolders;
    std::unique_ptr<QProcess> m_server;
    std::unique_ptr<QProcess> m_bus;
    int m_busNumber = 0;
    std::unique_ptr<QProcess> m_windowManager;
    std::unique_ptr<QProcess> m_compositor;
    std::unique_ptr<XDisplay> m_display;
    std::vector<std::unique_ptr<QProcess>> m_programs;
};

} // namespace zelmo::test
