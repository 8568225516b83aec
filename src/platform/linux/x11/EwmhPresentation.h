#pragma once

#include "overlay/SystemPresentation.h"
#include "platform/linux/x11/X11ProgramActivation.h"

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <xcb/xcb.h>

namespace zelmo {

class X11Connection;

// Docks and panels make room for a window that fills the screen, and are back as soon as that window is gone: so giving
// the room back takes the window away. While it is up the window is on all workspaces, and has the keyboard again when
// another window manager takes over, which gives it to any window.
// Where there is no X server only the window itself comes and goes. Main thread.
class EwmhPresentation : public QObject, public SystemPresentation {
    Q_OBJECT

public:
    // The connection outlives it; null where there is no X server.
    explicit EwmhPresentation(X11Connection* connection);

    PresentationOptions options() const override { return m_options; }
    void setOptions(PresentationOptions options, QWindow& window) override;

private:
    void noteEvent(const xcb_generic_event_t& event);
    void noteFocus(QWindow* window);

    X11Connection* m_connection;
    X11ProgramActivation m_activation;
    PresentationOptions m_options;
    QPointer<QWindow> m_window;      // that fills the screen
    QPointer<QWindow> m_lastFocused; // of the program's own
};

} // namespace zelmo
