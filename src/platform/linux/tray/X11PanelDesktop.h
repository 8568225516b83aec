#pragma once

#include "menubar/PanelDesktop.h"

#include <QObject>

#include <optional>
#include <xcb/xcb.h>

namespace zelmo {

class X11Connection;

// Asks the X server and tells the window manager what a panel beside the tray needs. Presses are heard of by the
// server's raw input events, which need no grab and take nothing from the window that is pressed; where the keyboard
// is, by the server's own events, for the toolkit tells of a loss late, maybe when the window has it again. Owned by
// the application; main thread.
class X11PanelDesktop : public QObject, public PanelDesktop {
    Q_OBJECT

public:
    // The connection outlives it; null where there is no X server.
    explicit X11PanelDesktop(X11Connection* connection);

    bool isComposited() const override;
    void bringToFront(QWindow& window, const QByteArray& activationToken) override;
    void watch(QWindow& window, PanelWatch watch) override;
    void endWatch() override;

private:
    enum class Focus { expected, here };

    void handle(const xcb_generic_event_t& event);
    void handleFocus(const xcb_focus_in_event_t& event);
    void selectRawPresses(std::uint32_t events);
    void selectFocus(std::uint32_t events);
    // Nothing where the server does not have it.
    std::optional<std::uint8_t> inputExtension() const;

    X11Connection* m_connection;
    std::optional<std::uint8_t> m_inputExtension; // known once something has been watched
    PanelWatch m_watch;
    xcb_window_t m_window = XCB_WINDOW_NONE; // that is watched
    Focus m_focus = Focus::expected;
    QMetaObject::Connection m_activeChange; // where there is no X server to ask
};

} // namespace zelmo
