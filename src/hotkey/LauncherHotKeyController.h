#pragma once

#include "hotkey/FourCharCode.h"
#include "hotkey/HotKeyService.h"

#include <QObject>

namespace zelmo {

class Preferences;

// Registers the shortcut that the user has chosen, has each press of it toggle the wall, and leaves a line for the
// settings that says how the registration went. One instance for the process, made at start-up after the service,
// which outlives it; main thread. Its end unregisters nothing.
class LauncherHotKeyController : public QObject {
    Q_OBJECT

public:
    static constexpr HotKeyIdentifier hotKeyIdentifier{.signature = fourCharCode("ZLM1"), .id = 1};

    LauncherHotKeyController(Preferences& preferences, HotKeyService& service, std::function<void()> toggleOverlay);

    // Takes the shortcut in the preferences, after letting go of the one that was taken before.
    void configure();

private:
    void installHandlerIfNeeded();
    void handlePress(HotKeyIdentifier identifier);

    Preferences& m_preferences;
    HotKeyService& m_service;
    std::function<void()> m_toggleOverlay;
    std::optional<HotKeyReference> m_hotKey;
    bool m_handlerIsInstalled = false;
};

} // namespace zelmo
