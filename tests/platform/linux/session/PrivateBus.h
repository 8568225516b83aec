#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>

namespace zelmo::test {

// A message bus of its own, on which anyone may own any name, with one program on it: the test's services. Services
// that were asked for and could have been started show in `startedServices`.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const QString& address() const { return m_address; }
    // Where the test's services are.
    QDBusConnection services() const { return QDBusConnection(m_connectionName); }

    // The bus starts this service when someone asks for it.
    void makeStartable(const QString& service) const;
    bool wasStarted(const QString& service) const;

    // Stops its program in the middle of whatever it does, or lets it go on.
    void setRunning(bool runs) const;
    void kill();
    // After that, at the same address.
    void startAgain();

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QString m_connectionName;
};

} // namespace zelmo::test
