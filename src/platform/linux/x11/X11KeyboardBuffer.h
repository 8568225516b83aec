#pragma once

#include "overlay/KeyboardBuffer.h"

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QTimer>

#include <vector>
#include <xcb/xcb.h>

namespace zelmo {

// Keeps keys by grabbing the keyboard on the root window until the wall has the focus. The grab is let go after
// `longestGrab` at the latest, so that a wall that never gets the focus can't hold the keyboard; the keys kept by
// then still wait for it. Where another program holds a grab none is made. Owned by the application's construction
// code; main thread.
class X11KeyboardBuffer : public QObject, public KeyboardBuffer, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds longestGrab{1500};

    X11KeyboardBuffer();
    ~X11KeyboardBuffer() override;

    void begin() override;
    void deliverTo(QWindow& window) override;
    void cancel() override;

private:
    enum class State {
        idle,
        keeping,  // the grab is held and keys are kept
        replaying // the window has the focus and kept keys are on their way to it through the server
    };

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void watchFocus();
    bool windowHasFocus() const;
    void replay();
    void ungrab();

    xcb_connection_t* m_connection = nullptr;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    State m_state = State::idle;
    QWindow* m_window = nullptr;
    std::vector<xcb_key_press_event_t> m_kept;
    std::size_t m_underway = 0; // sent and not yet seen again
    QTimer m_limit;
};

} // namespace zelmo
