#include "PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>

#include <csignal>

namespace zelmo::test {

namespace {

void write(const QString& path, const QString& contents) {
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(contents.toUtf8()) < 0)
        qFatal("%s can't be written", qPrintable(path));
}

} // namespace

PrivateBus::PrivateBus() {
    static int count = 0;
    m_connectionName = QStringLiteral("services-%1").arg(++count);
    QDir(m_folder.path()).mkdir(QStringLiteral("services"));
    const QString configuration = m_folder.filePath(QStringLiteral("bus.conf"));
    write(configuration, QStringLiteral("<busconfig><type>session</type><listen>unix:path=%1/bus</listen>"
                                        "<auth>EXTERNAL</auth><servicedir>%1/services</servicedir>"
                                        "<policy context=\"default\"><allow send_destination=\"*\"/>"
                                        "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>")
                             .arg(m_folder.path()));
    m_daemon.setStandardErrorFile(m_folder.filePath(QStringLiteral("log")));
    startAgain();
}

PrivateBus::~PrivateBus() {
    kill();
}

void PrivateBus::startAgain() {
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=") + m_folder.filePath(QStringLiteral("bus.conf")),
                    QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    QByteArray address;
    while (!address.endsWith('\n') && m_daemon.waitForReadyRead(15'000))
        address += m_daemon.readAllStandardOutput();
    // Of the place only, as a session's bus has it: one that comes again has another identity.
    m_address = QString::fromLatin1(address.left(address.indexOf(',')));
    if (!QDBusConnection::connectToBus(m_address, m_connectionName).isConnected())
        qFatal("no private bus starts");
}

void PrivateBus::makeStartable(const QString& service) const {
    write(m_folder.filePath(QStringLiteral("services/") + service + QStringLiteral(".service")),
          QStringLiteral("[D-BUS Service]\nName=%1\nExec=/usr/bin/touch %2/%1\n").arg(service, m_folder.path()));
    services().interface()->call(QStringLiteral("ReloadConfig"));
}

bool PrivateBus::wasStarted(const QString& service) const {
    return QFile::exists(m_folder.filePath(service));
}

void PrivateBus::setRunning(bool runs) const {
    ::kill(static_cast<pid_t>(m_daemon.processId()), runs ? SIGCONT : SIGSTOP);
}

void PrivateBus::kill() {
    QDBusConnection::disconnectFromBus(m_connectionName);
    m_daemon.kill();
    m_daemon.waitForFinished(15'000);
}

} // namespace zelmo::test
