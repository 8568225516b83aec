#pragma once

#include "platform/linux/files/FileDescriptor.h"
#include "shell/ProgramInstance.h"

#include <QObject>
#include <QSocketNotifier>

#include <optional>

namespace zelmo {

// A locked file in the user's runtime folder, one for each display, and a socket beside it on which the process that
// holds the lock is asked to show itself. The lock goes with its process however that ends, so what is left of a
// crash is no hindrance. Main thread.
class LockFileProgramInstance : public QObject, public ProgramInstance {
    Q_OBJECT

public:
    // The folder is made when it is missing; nothing in it counts unless it is the user's alone. The display is
    // a name such as ":0".
    LockFileProgramInstance(QByteArray folder, const QByteArray& display);
    ~LockFileProgramInstance() override;

    // A folder of the user's own that goes with the login, or one below /tmp where the login gives none.
    static QByteArray standardFolder();

    InstanceClaim claim(const QByteArray& activationToken) override;
    void listen(RequestHandler handler) override;

private:
    bool openFolder();
    bool bindSocket();
    std::optional<InstanceClaim> askHolder(const QByteArray& activationToken) const;
    void acceptConnections();
    void readFrom(int connection, QSocketNotifier* notifier);

    QByteArray m_folderPath;
    QByteArray m_lockName;
    QByteArray m_socketName;
    FileDescriptor m_folder{-1};
    FileDescriptor m_lock{-1};
    FileDescriptor m_socket{-1};
    RequestHandler m_handler;
    std::optional<QSocketNotifier> m_incoming;
};

} // namespace zelmo
