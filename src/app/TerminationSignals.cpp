#include "app/TerminationSignals.h"

#include <QCoreApplication>

#include <array>
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
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
}

} // namespace

// A handler rather than a blocked signal: a blocked one would be inherited by every launched program.
TerminationSignals::TerminationSignals() : m_descriptor(openPipe()), m_notifier(m_descriptor, QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    struct sigaction action {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        sigaction(number, &action, nullptr);
}

TerminationSignals::~TerminationSignals() {
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        std::signal(number, SIG_DFL);
    for (const int end : signalPipe)
        close(end);
}

} // namespace zelmo
