#pragma once

#include <QByteArray>

namespace zelmo {

// What is known of a program that is about to be started. All texts are UTF-8 and may be empty.
struct StartupDescription {
    QByteArray name;
    QByteArray entryId;
    QByteArray startupClass; // of its windows
};

// Tells the desktop that the user has asked for a program, so that it may come to the front when its window appears.
// Main thread only.
class StartupNotifier {
public:
    virtual ~StartupNotifier() = default;

    // The token that the program takes over; empty where the desktop has none. Nobody else is told.
    virtual QByteArray token(const StartupDescription& program) = 0;

    // The same, and the desktop shows that the program is on its way until its window appears. For programs that are
    // known to say so themselves.
    virtual QByteArray announcedToken(const StartupDescription& program) = 0;

    // The program of an announced token does not come.
    virtual void cancel(const QByteArray& token) = 0;
};

} // namespace zelmo
