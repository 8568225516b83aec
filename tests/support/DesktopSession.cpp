#include "support/DesktopSession.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThread>

#include <csignal>
#include <grp.h>
#include <optional>
#include <unistd.h>
#include <xcb/xcb.h>

namespace zelmo::test {

namespace {

constexpr qint64 longestWait = 15000;
// Between two looks at what is waited for. Where more has passed, the machine stood still, and nothing could come
// about.
constexpr qint64 longestStep = 1000;
// After which a window that is not managed gives way to another one.
constexpr qint64 probeTime = 1000;
constexpr uid_t ordinaryUser = 65534;
constexpr gid_t ordinaryGroup = 65534;
const QString dataFoldersVariable = QStringLiteral("XDG_DATA_DIRS");

// A window of our own, there for nothing but to be managed.
class ProbeWindow {
public:
    explicit ProbeWindow(const XDisplay& display)
        : m_display(display), m_window(xcb_generate_id(display.connection())) {
        xcb_create_window(display.connection(), XCB_COPY_FROM_PARENT, m_window, display.root(), 0, 0, 10, 10, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(display.connection(), m_window);
    }
    ~ProbeWindow() {
        xcb_destroy_window(m_display.connection(), m_window);
        m_display.synchronize();
    }
    ProbeWindow(const ProbeWindow&) = delete;
    ProbeWindow& operator=(const ProbeWindow&) = delete;

    // Whether a window manager has given it a state.
    bool isManaged() const {
        const char name[] = "WM_STATE";
        xcb_connection_t* connection = m_display.connection();
        auto* atom = xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, sizeof name - 1, name), nullptr);
        auto* property = xcb_get_property_reply(
            connection, xcb_get_property(connection, 0, m_window, atom->atom, XCB_ATOM_ANY, 0, 1), nullptr);
        const bool found = property && xcb_get_property_value_length(property) > 0;
        std::free(atom);
        std::free(property);
        return found;
    }

private:
    const XDisplay& m_display;
    xcb_window_t m_window;
};

} // namespace

std::unique_ptr<DesktopSession> DesktopSession::start(const DesktopOptions& options) {
    std::unique_ptr<DesktopSession> session(new DesktopSession);
    session->m_user = geteuid() == 0 ? options.user : DesktopUser::same;
    session->m_environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"QT_QPA_PLATFORM", "QT_QUICK_BACKEND", "WAYLAND_DISPLAY", "XDG_DATA_HOME",
                             "XDG_CONFIG_HOME", "XDG_CURRENT_DESKTOP", "DESKTOP_STARTUP_ID", "QT_IM_MODULE"})
        session->m_environment.remove(QString::fromLatin1(name));
    const QString home = session->home();
    session->m_environment.insert(QStringLiteral("HOME"), home);
    session->m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home + QStringLiteral("/run"));
    QDir(home).mkdir(QStringLiteral("run"));
    QFile::setPermissions(home + QStringLiteral("/run"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QDir(home).mkdir(QStringLiteral("launched"));
    session->giveToUser(home + QStringLiteral("/run"));
    session->giveToUser(home + QStringLiteral("/launched"));

    if (options.shortcuts == WindowManagerShortcuts::none)
        session->writeFile(QStringLiteral(".config/openbox/rc.xml"),
                           "<?xml version=\"1.0\"?><openbox_config xmlns=\"http://openbox.org/3.4/rc\"><keyboard/>"
                           "</openbox_config>");

    if (!session->startServer(options) || !session->startBus(BusPlace::same) ||
        (!options.windowManager.isEmpty() && !session->startWindowManager(options.windowManager)) ||
        (options.compositor == Compositor::picom && !session->startCompositor()))
        return nullptr;
    // After the services, which find their own data in the system's folders.
    session->m_serviceDataFolders = session->m_environment.value(dataFoldersVariable);
    session->m_environment.insert(dataFoldersVariable, home + QStringLiteral("/share"));
    return session;
}

DesktopSession::~DesktopSession() {
    for (const auto& program : m_programs) {
        if (program->state() != QProcess::NotRunning) {
            program->terminate();
            if (!program->waitForFinished(longestWait)) {
                qWarning("%s does not end when it is told to", qPrintable(program->program()));
                program->kill();
            }
        }
    }
    m_programs.clear();
    m_display.reset();
    for (QProcess* process : {m_compositor.get(), m_windowManager.get(), m_bus.get(), m_server.get()}) {
        if (!process)
            continue;
        process->kill();
        process->waitForFinished(5000);
    }
}

void DesktopSession::stopWindowManager() const {
    const auto process = static_cast<pid_t>(m_windowManager->processId());
    ::kill(process, SIGSTOP);
    // Stopped while it has the server to itself, it would stop everyone. What it asked for last may come to its turn
    // only after the first answer.
    while (!m_display->serverAnswers() || !m_display->serverAnswers()) {
        ::kill(process, SIGCONT);
        m_display->synchronize();
        ::kill(process, SIGSTOP);
    }
}

void DesktopSession::continueWindowManager() const {
    ::kill(static_cast<pid_t>(m_windowManager->processId()), SIGCONT);
}

QProcess* DesktopSession::processOf(DesktopPart part) const {
    switch (part) {
    case DesktopPart::windowManager:
        return m_windowManager.get();
    case DesktopPart::compositor:
        return m_compositor.get();
    case DesktopPart::bus:
        return m_bus.get();
    }
    return nullptr;
}

void DesktopSession::kill(DesktopPart part) {
    QProcess* process = processOf(part);
    process->kill();
    process->waitForFinished(5000);
}

bool DesktopSession::startAgain(DesktopPart part, BusPlace place) {
    const QString dataFolders = m_environment.value(dataFoldersVariable);
    m_environment.insert(dataFoldersVariable, m_serviceDataFolders);
    const bool isUp = startPart(part, place);
    m_environment.insert(dataFoldersVariable, dataFolders);
    return isUp;
}

bool DesktopSession::startPart(DesktopPart part, BusPlace place) {
    switch (part) {
    case DesktopPart::windowManager:
        return startWindowManager(m_windowManagerName);
    case DesktopPart::compositor:
        return startCompositor();
    case DesktopPart::bus:
        return startBus(place);
    }
    return false;
}

void DesktopSession::endServer() {
    m_display.reset();
    m_server->kill();
    m_server->waitForFinished(5000);
}

void DesktopSession::writeFile(const QString& path, const QByteArray& contents) const {
    const QString whole = home() + u'/' + path;
    QDir().mkpath(QFileInfo(whole).path());
    QFile file(whole);
    if (!file.open(QFile::WriteOnly) || file.write(contents) != contents.size())
        qFatal("%s can't be written", qPrintable(whole));
    giveToUser(whole);
}

void DesktopSession::writeProgram(const QString& path, const QByteArray& contents) const {
    writeFile(path, contents);
    QFile::setPermissions(home() + u'/' + path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void DesktopSession::installEntry(const QString& name, const QByteArray& moreLines) const {
    const QString mark = home() + QStringLiteral("/launched/") + name;
    writeFile(QStringLiteral(".local/share/applications/") + name + QStringLiteral(".desktop"),
              "[Desktop Entry]\nType=Application\nName=" + name.toUtf8() + "\nExec=touch \"" + mark.toUtf8() + "\"\n" +
                  moreLines);
}

QStringList DesktopSession::launched() const {
    return QDir(home() + QStringLiteral("/launched")).entryList(QDir::Files, QDir::Name);
}

QProcess& DesktopSession::startProgram(const QString& program, const QStringList& arguments) {
    m_programs.push_back(spawn(program, arguments));
    return *m_programs.back();
}

bool DesktopSession::waitFor(const std::function<bool()>& condition) {
    QElapsedTimer sinceLastLook;
    sinceLastLook.start();
    for (qint64 waited = 0; !condition(); waited += std::min(sinceLastLook.restart(), longestStep)) {
        if (waited >= longestWait)
            return false;
        QCoreApplication::processEvents();
        QThread::msleep(2);
    }
    return true;
}

void DesktopSession::prepare(QProcess& process) const {
    process.setProcessEnvironment(m_environment);
    if (m_user == DesktopUser::same)
        return;
    process.setChildProcessModifier([] {
        if (setgroups(0, nullptr) != 0 || setgid(ordinaryGroup) != 0 || setuid(ordinaryUser) != 0)
            _exit(126);
    });
}

// With the folders around it, up to the home folder.
void DesktopSession::giveToUser(const QString& path) const {
    if (m_user == DesktopUser::same)
        return;
    for (QString part = path; part.startsWith(home()); part = QFileInfo(part).path()) {
        if (chown(QFile::encodeName(part).constData(), ordinaryUser, ordinaryGroup) != 0)
            qFatal("%s can't be given away", qPrintable(part));
    }
}

std::unique_ptr<QProcess> DesktopSession::spawn(const QString& program, const QStringList& arguments) const {
    auto process = std::make_unique<QProcess>();
    prepare(*process);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(program, arguments);
    if (!process->waitForStarted())
        qWarning("%s does not start: %s", qPrintable(program), qPrintable(process->errorString()));
    return process;
}

bool DesktopSession::startServer(const DesktopOptions& options) {
    auto server = std::make_unique<QProcess>();
    prepare(*server);
    server->setStandardErrorFile(home() + QStringLiteral("/server.log"));
    const QSize size = options.screen;
    QStringList arguments{QStringLiteral("-displayfd"),
                          QStringLiteral("1"),
                          QStringLiteral("-screen"),
                          QStringLiteral("0"),
                          QStringLiteral("%1x%2x%3").arg(size.width()).arg(size.height()).arg(options.depth),
                          QStringLiteral("-nolisten"),
                          QStringLiteral("tcp"),
                          QStringLiteral("-dpi"),
                          QStringLiteral("96")};
    if (options.sharedMemory == SharedMemory::missing)
        arguments << QStringLiteral("-extension") << QStringLiteral("MIT-SHM");
    server->start(QStringLiteral("Xvfb"), arguments);
    QByteArray number;
    if (!server->waitForStarted() || !waitFor([&] {
            server->waitForReadyRead(20);
            number += server->readAllStandardOutput();
            return number.endsWith('\n');
        })) {
        qWarning("no X server starts");
        return false;
    }
    m_displayName = u':' + QString::fromLatin1(number.trimmed());
    m_environment.insert(QStringLiteral("DISPLAY"), m_displayName);
    m_server = std::move(server);
    m_display = XDisplay::open(m_displayName);
    if (m_display && options.monitors != Monitors::one)
        divideScreen(*m_display, options.monitors == Monitors::leftPrimary ? Monitor::left : Monitor::right);
    return m_display != nullptr;
}

bool DesktopSession::startBus(BusPlace place) {
    if (place == BusPlace::another)
        ++m_busNumber;
    auto bus = std::make_unique<QProcess>();
    prepare(*bus);
    bus->setStandardErrorFile(home() + QStringLiteral("/bus.log"));
    const QString address = QStringLiteral("unix:path=%1/bus-%2").arg(home()).arg(m_busNumber);
    bus->start(QStringLiteral("dbus-daemon"),
               {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1"),
                QStringLiteral("--address=") + address});
    QByteArray printed;
    if (!bus->waitForStarted() || !waitFor([&] {
            bus->waitForReadyRead(20);
            printed += bus->readAllStandardOutput();
            return printed.endsWith('\n');
        })) {
        qWarning("no session bus starts");
        return false;
    }
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    m_bus = std::move(bus);
    return true;
}

bool DesktopSession::startWindowManager(const QString& program) {
    m_windowManagerName = program;
    m_windowManager = std::make_unique<QProcess>();
    prepare(*m_windowManager);
    const QString messages = home() + QStringLiteral("/windowmanager.log");
    m_windowManager->setStandardErrorFile(messages);
    m_windowManager->start(program, QStringList());
    // It is ready when it manages a window; that it has announced itself says less. One that comes up while it starts
    // may be passed over, as by openbox, so that another one has to follow.
    std::optional<ProbeWindow> probe;
    QElapsedTimer shown;
    const auto managesAWindow = [&] {
        if (!probe || shown.hasExpired(probeTime)) {
            probe.emplace(*m_display);
            shown.start();
        }
        return probe->isManaged();
    };
    if (!m_windowManager->waitForStarted() || !waitFor(managesAWindow)) {
        QFile log(messages);
        (void)log.open(QFile::ReadOnly);
        qWarning("%s does not start (%s): %s", qPrintable(program),
                 m_windowManager->state() == QProcess::Running ? "it runs" : "it has ended", log.readAll().constData());
        return false;
    }
    return true;
}

bool DesktopSession::hasCompositor() {
    return !QStandardPaths::findExecutable(QStringLiteral("picom")).isEmpty();
}

bool DesktopSession::startCompositor() {
    m_compositor = std::make_unique<QProcess>();
    prepare(*m_compositor);
    m_compositor->setStandardErrorFile(home() + QStringLiteral("/compositor.log"));
    m_compositor->start(QStringLiteral("picom"), {QStringLiteral("--backend"), QStringLiteral("xrender"),
                                                  QStringLiteral("--config"), QStringLiteral("/dev/null")});
    if (!m_compositor->waitForStarted() || !waitFor([this] { return m_display->hasOwner("_NET_WM_CM_S0"); })) {
        qWarning("picom does not start");
        return false;
    }
    return true;
}

} // namespace zelmo::test
