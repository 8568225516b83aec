#include "platform/linux/session/LockFileProgramInstance.h"

#include <QTimer>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>

namespace zelmo {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds longestAnswer = 5s;
constexpr std::chrono::milliseconds longestSilence = 5s;
// Between taking the lock and opening the socket there is next to nothing.
constexpr std::chrono::milliseconds retryDelay = 5ms;
constexpr int maximumAttempts = 400;
constexpr int waitingConnections = 16;
constexpr std::size_t longestToken = 4096;
constexpr char confirmation = '+';

// A path of any length, short enough for an address of a socket.
std::optional<sockaddr_un> addressOf(const FileDescriptor& folder, const QByteArray& name) {
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(folder.value()) + '/' + name;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(path.size()) >= sizeof address.sun_path)
        return std::nullopt;
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    return address;
}

const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

// One name for the screens of a display, and for the ways to say that it is on this machine.
QByteArray displayOf(QByteArray name) {
    const qsizetype colon = name.lastIndexOf(':');
    if (const qsizetype screen = name.indexOf('.', std::max<qsizetype>(colon, 0)); colon >= 0 && screen > 0)
        name.truncate(screen);
    return name.startsWith("unix:") ? name.mid(4) : name;
}

int makeSocket(int flags) {
    // Packets: a token is read whole or not at all.
    return socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | flags, 0);
}

} // namespace

LockFileProgramInstance::LockFileProgramInstance(QByteArray folder, const QByteArray& display)
    : m_folderPath(std::move(folder)) {
    const QByteArray name = "display-" + displayOf(display).toPercentEncoding().left(64);
    m_lockName = name + ".lock";
    m_socketName = name + ".socket";
}

LockFileProgramInstance::~LockFileProgramInstance() {
    if (m_socket.isValid())
        unlinkat(m_folder.value(), m_socketName.constData(), 0);
}

QByteArray LockFileProgramInstance::standardFolder() {
    const QByteArray runtimeFolder = qgetenv("XDG_RUNTIME_DIR");
    if (runtimeFolder.startsWith('/'))
        return runtimeFolder + QByteArrayLiteral("/zelmo");
    return "/tmp/zelmo-" + QByteArray::number(geteuid());
}

bool LockFileProgramInstance::openFolder() {
    mkdir(m_folderPath.constData(), S_IRWXU);
    m_folder.reset(open(m_folderPath.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat information {};
    return m_folder.isValid() && fstat(m_folder.value(), &information) == 0 && information.st_uid == geteuid() &&
           (information.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

bool LockFileProgramInstance::bindSocket() {
    const auto address = addressOf(m_folder, m_socketName);
    unlinkat(m_folder.value(), m_socketName.constData(), 0);
    m_socket.reset(makeSocket(SOCK_NONBLOCK));
    return address && m_socket.isValid() && bind(m_socket.value(), generic(*address), sizeof *address) == 0 &&
           ::listen(m_socket.value(), waitingConnections) == 0;
}

InstanceClaim LockFileProgramInstance::claim(const QByteArray& activationToken) {
    if (!openFolder())
        return InstanceClaim::unavailable;
    m_lock.reset(
        openat(m_folder.value(), m_lockName.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!m_lock.isValid())
        return InstanceClaim::unavailable;
    for (int attempt = 0; attempt < maximumAttempts; ++attempt) {
        if (flock(m_lock.value(), LOCK_EX | LOCK_NB) == 0) {
            if (bindSocket())
                return InstanceClaim::first;
            // Nobody could ask for anything here.
            m_lock.reset(-1);
            return InstanceClaim::unavailable;
        }
        if (errno != EWOULDBLOCK)
            return InstanceClaim::unavailable;
        if (const auto answer = askHolder(activationToken))
            return *answer;
        std::this_thread::sleep_for(retryDelay);
    }
    return InstanceClaim::unanswered;
}

// Nothing while the holder can't be reached: it has only just started, or has come to its end.
std::optional<InstanceClaim> LockFileProgramInstance::askHolder(const QByteArray& activationToken) const {
    const auto address = addressOf(m_folder, m_socketName);
    const FileDescriptor connection(makeSocket(0));
    // One byte at least, for a packet of none can't be told from the end.
    const QByteArray message = activationToken.left(longestToken - 1) + '\0';
    if (!address || ::connect(connection.value(), generic(*address), sizeof *address) != 0 ||
        send(connection.value(), message.constData(), static_cast<std::size_t>(message.size()), MSG_NOSIGNAL) < 0)
        return std::nullopt;
    pollfd state{.fd = connection.value(), .events = POLLIN, .revents = 0};
    if (poll(&state, 1, longestAnswer.count()) == 0)
        return InstanceClaim::unanswered;
    char answer = 0;
    if (recv(connection.value(), &answer, 1, MSG_DONTWAIT) == 1 && answer == confirmation)
        return InstanceClaim::handedOver;
    return std::nullopt;
}

void LockFileProgramInstance::listen(RequestHandler handler) {
    if (!m_socket.isValid())
        return;
    m_handler = std::move(handler);
    m_incoming.emplace(m_socket.value(), QSocketNotifier::Read);
    connect(&*m_incoming, &QSocketNotifier::activated, this, &LockFileProgramInstance::acceptConnections);
}

void LockFileProgramInstance::acceptConnections() {
    for (int i = 0; i < waitingConnections; ++i) {
        const int connection = accept4(m_socket.value(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (connection < 0)
            return;
        auto* notifier = new QSocketNotifier(connection, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this,
                [this, connection, notifier] { readFrom(connection, notifier); });
        connect(notifier, &QObject::destroyed, this, [connection] { close(connection); });
        // Who says nothing is not waited for.
        QTimer::singleShot(longestSilence, notifier, &QObject::deleteLater);
    }
}

void LockFileProgramInstance::readFrom(int connection, QSocketNotifier* notifier) {
    std::array<char, longestToken> token{};
    const ssize_t length = recv(connection, token.data(), token.size(), 0);
    if (length < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    notifier->setEnabled(false);
    notifier->deleteLater();
    if (length <= 0)
        return;
    // Before the request is handled, which may take as long as a question to the user.
    [[maybe_unused]] const ssize_t sent = send(connection, &confirmation, 1, MSG_NOSIGNAL);
    m_handler(ApplicationRequest::activate, QByteArray(token.data(), length - 1));
}

} // namespace zelmo
