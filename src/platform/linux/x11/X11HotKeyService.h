#pragma once

#include "hotkey/HotKeyService.h"

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QTimer>

#include <map>
#include <vector>
#include <xcb/xcb.h>

namespace zelmo {

class X11KeyboardLayout;

// Grabs key combinations on the root window, with every combination of the lock modifiers, and follows changes of
// the keyboard layout. It grabs on Qt's connection, so that a grab of the keyboard that a press leads to takes over
// without a gap: the server holds further keys back until the handler's queued work has had its turn. It sees events
// before filters that were installed earlier, and must be made after the keyboard buffer for that reason. Owned by
// the application's construction code; main thread.
class X11HotKeyService : public QObject, public HotKeyService, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11HotKeyService();
    ~X11HotKeyService() override;

    void installHandler(Handler handler) override;
    std::optional<HotKeyReference> registerHotKey(HotKeyCombination combination, HotKeyIdentifier identifier) override;
    void unregisterHotKey(HotKeyReference reference) override;

private:
    struct KeyGrab {
        xcb_keycode_t key;
        std::uint16_t modifiers;

        friend bool operator==(const KeyGrab&, const KeyGrab&) = default;
    };
    struct HotKey {
        HotKeyCombination combination;
        HotKeyIdentifier identifier;
        std::vector<KeyGrab> grabs; // empty while the layout lacks the keys or another program has them
    };
    struct KeyMoment {
        xcb_keycode_t key = 0;
        xcb_timestamp_t time = 0;

        friend bool operator==(const KeyMoment&, const KeyMoment&) = default;
    };

    static std::vector<KeyGrab> grabsFor(HotKeyCombination combination, const X11KeyboardLayout& layout);
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    bool takesPress(const xcb_key_press_event_t& event);
    bool takesRelease(const xcb_key_release_event_t& event);
    void followLayout();
    // All of them or none.
    bool grab(const std::vector<KeyGrab>& grabs);
    void ungrab(const std::vector<KeyGrab>& grabs);
    void letKeysFlow();

    xcb_connection_t* m_connection = nullptr;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    std::optional<std::uint8_t> m_xkbEventType;
    Handler m_handler;
    std::map<HotKeyReference, HotKey> m_hotKeys;
    std::uint32_t m_lastReference = 0;
    xcb_keycode_t m_pressedKey = 0; // of the last hot key, until it is pressed for something else
    KeyMoment m_lastRelease;
    QTimer m_layoutChange;
};

} // namespace zelmo
