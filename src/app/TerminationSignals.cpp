#include "app/TerminationSignals.h"

#include <QCoreApplication>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace zelmo {

namespace {

std::array<int, 2> signalPipe{-1, -1};

int openPipe() {
    if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("No pipe for signals can be made.");
    return signalPipe[0];
}

extern "C" void noteSignal(int) {
    const int before = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
    errno = before;
}

} // namespace

// A handler rather than a blocked signal: a blocked one would be inherited by every launched program.
TerminationSignals::TerminationSignals() : m_descriptor(openPipe()), m_notifier(m_descriptor, QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, [] {
        std::array<char, 16> bytes{};
        while (read(signalPipe[0], bytes.data(), bytes.size()) > 0) {
        }
        QCoreApplication::quit();
    });
    struct sigaction action {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        // Whoever started the program may want it to outlive a terminal.
        struct sigaction inherited {};
        if (sigaction(number, nullptr, &inherited) == 0 && inherited.sa_handler != SIG_IGN)
            sigaction(number, &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals() {
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        std::signal(number, SIG_DFL);
    for (const int end : signalPipe)
        close(end);
}

} // namespace zelmo
