#pragma once

#include "platform/linux/session/ReconnectTimer.h"
#include "settings/ColorScheme.h"

#include <QByteArray>
#include <QSocketNotifier>

#include <memory>
#include <optional>

struct sd_bus;
struct sd_bus_message;

namespace zelmo {

// The desktop's light or dark scheme and its accent colour, as its portal tells them. Nothing is known without a
// session bus, without the portal, which is not started for this, or where it knows no such settings. Never waits for
// the bus; connects again to one that comes again. Main thread.
class PortalColorScheme : public ColorScheme {
public:
    // Of the session bus; empty where there is none.
    explicit PortalColorScheme(const QString& address);
    ~PortalColorScheme() override;
    PortalColorScheme(const PortalColorScheme&) = delete;
    PortalColorScheme& operator=(const PortalColorScheme&) = delete;

    void start() override;
    SchemeWish wish() const override { return m_wish; }
    std::optional<QColor> accent() const override { return m_accent; }
    void setChangeHandler(std::function<void()> handler) override { m_handler = std::move(handler); }

private:
    struct BusCloser {
        void operator()(sd_bus* bus) const;
    };
    struct Callbacks;

    bool connect();
    void disconnect();
    void ask();
    void process();
    // The name and the value of one setting, which the message stands before; others pass unheeded.
    int readSetting(sd_bus_message* message, const char* name);
    void announce();

    QByteArray m_address;
    std::unique_ptr<sd_bus, BusCloser> m_bus;
    std::optional<QSocketNotifier> m_readable;
    std::optional<QSocketNotifier> m_writable;
    SchemeWish m_wish = SchemeWish::unknown;
    std::optional<QColor> m_accent;
    std::function<void()> m_handler;
    ReconnectTimer m_reconnect;
};

} // namespace zelmo
