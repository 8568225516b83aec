#pragma once

#include "menubar/PanelDesktop.h"

#include <QObject>

#include <optional>
#include <xcb/xcb.h>

namespace zelmo {

class X11Connection;

// Asks the X server and tells the window manager what a panel beside the tray needs. Presses are heard of by the
// server's raw input events, which need no grab and take nothing from the window that is pressed. Owned by the
// application; main thread.
class X11PanelDesktop : public QObject, public PanelDesktop {
    Q_OBJECT

public:
    // The connection outlives it; null where there is no X server.
    explicit X11PanelDesktop(X11Connection* connection);

    bool isComposited() const override;
    void bringToFront(QWindow& window, const QByteArray& activationToken) override;
    void watchPresses(std::function<void()> pressed) override;

private:
    void handle(const xcb_generic_event_t& event);
    void selectRawPresses(std::uint32_t events);

    X11Connection* m_connection;
    std::optional<std::uint8_t> m_inputExtension; // known once presses have been watched
    std::function<void()> m_pressed;
};

} // namespace zelmo
