#pragma once

#include "platform/linux/launching/StartupNotifier.h"
#include "platform/linux/x11/X11Connection.h"

#include <map>

struct SnDisplay;
struct SnLauncherContext;

namespace zelmo {

// Gives out start-up IDs, in which window managers find the time of what the user did, and sends the messages that
// go with them. Main thread.
class X11StartupNotifier : public QObject, public StartupNotifier {
    Q_OBJECT

public:
    // The connection outlives it; without one there are no tokens.
    explicit X11StartupNotifier(X11Connection* connection);
    ~X11StartupNotifier() override;

    QByteArray token(const StartupDescription& program) override;
    QByteArray announcedToken(const StartupDescription& program) override;
    void cancel(const QByteArray& token) override;
    // Tells the desktop that what it announced by this token is there: this program, started once more. An empty
    // token does nothing.
    void complete(const QByteArray& token);

private:
    // A program that never says that it is there is not waited for any longer than this.
    static constexpr std::chrono::seconds longestWait{15};

    X11Connection* m_connection;
    SnDisplay* m_display = nullptr;
    std::map<QByteArray, SnLauncherContext*> m_announced;
    unsigned m_count = 0;
};

} // namespace zelmo
