#include "hotkey/LauncherHotKeyController.h"

#include "hotkey/LauncherKeyboardShortcut.h"
#include "preferences/Preferences.h"

#include <QPointer>

namespace zelmo {

LauncherHotKeyController::LauncherHotKeyController(Preferences& preferences, HotKeyService& service,
                                                   std::function<void()> toggleOverlay)
    : m_preferences(preferences), m_service(service), m_toggleOverlay(std::move(toggleOverlay)) {}

void LauncherHotKeyController::configure() {
    installHandlerIfNeeded();
    if (m_hotKey) {
        m_service.unregisterHotKey(*m_hotKey);
        m_hotKey.reset();
    }

    const LauncherKeyboardShortcut shortcut =
        keyboardShortcutFromRawValue(m_preferences.value<PreferenceKey::launcherKeyboardShortcut>());
    const auto setStatus = [this](const QString& text) {
        m_preferences.setValue<PreferenceKey::launcherKeyboardShortcutStatus>(text);
    };
    const auto wanted = combination(shortcut);
    if (!wanted) {
        setStatus(QStringLiteral("Shortcut is off."));
        return;
    }
    m_hotKey = m_service.registerHotKey(*wanted, hotKeyIdentifier);
    if (m_hotKey)
        setStatus(title(shortcut) + u" is assigned to Zelmo.");
    else
        setStatus(u"Could not assign " + title(shortcut) +
                  u". Quit the old launcher or remove its shortcut, then try again.");
}

void LauncherHotKeyController::installHandlerIfNeeded() {
    if (m_handlerIsInstalled)
        return;
    m_service.installHandler([self = QPointer(this)](HotKeyIdentifier identifier) {
        if (self)
            self->handlePress(identifier);
    });
    m_handlerIsInstalled = true;
}

void LauncherHotKeyController::handlePress(HotKeyIdentifier identifier) {
    if (identifier.signature == hotKeyIdentifier.signature)
        QMetaObject::invokeMethod(this, m_toggleOverlay, Qt::QueuedConnection);
}

} // namespace zelmo
