#pragma once

#include "platform/linux/session/ReconnectTimer.h"
#include "shell/ProgramInstance.h"

#include <QSocketNotifier>
#include <QString>

#include <memory>
#include <optional>

struct sd_bus;
struct sd_bus_message;

namespace zelmo {

// The program's name on the session bus, and the desktop's interface for applications that stands behind it. Who
// starts the program a second time reaches the first one so, and so do the desktop's own menus. Made before there is
// an application object, and without threads: the second start must be over in no time. Main thread.
class DBusProgramInstance : public ProgramInstance {
public:
    static constexpr const char* name = "org.zelmo.Zelmo";
    static constexpr const char* objectPath = "/org/zelmo/Zelmo";

    // Of the session bus; empty where there is none.
    explicit DBusProgramInstance(const QString& address);
    ~DBusProgramInstance() override;
    DBusProgramInstance(const DBusProgramInstance&) = delete;
    DBusProgramInstance& operator=(const DBusProgramInstance&) = delete;

    InstanceClaim claim(const QByteArray& activationToken) override;
    void listen(RequestHandler handler) override;

private:
    struct BusCloser {
        void operator()(sd_bus* bus) const;
    };
    using Bus = std::unique_ptr<sd_bus, BusCloser>;
    struct Methods;

    Bus open();
    Bus connect();
    void watch();
    void process();
    void comeAgain();

    QByteArray m_address;
    Bus m_bus;
    RequestHandler m_handler;
    std::optional<QSocketNotifier> m_readable;
    std::optional<QSocketNotifier> m_writable;
    std::optional<ReconnectTimer> m_reconnect;
};

} // namespace zelmo
