#pragma once

#include <QSocketNotifier>

namespace zelmo {

// Ends the event loop on SIGTERM, SIGINT and SIGHUP, so that what the program knows is stored as at
// any other end. A signal that the program was started
// to ignore stays ignored. Made once in main, after the application object.
class TerminationSignals {
public:
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    int m_descriptor;
    QSocketNotifier m_notifier;
};

} // namespace zelmo
