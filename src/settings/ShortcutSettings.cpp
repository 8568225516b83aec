#include "settings/ShortcutSettings.h"

#include "hotkey/LauncherHotKeyController.h"

namespace zelmo {

namespace {

using Key = PreferenceKey;

} // namespace

ShortcutSettings::ShortcutSettings(Preferences& preferences, LauncherHotKeyController& hotKeyController,
                                   QObject* parent)
    : QObject(parent), m_preferences(preferences), m_hotKeyController(hotKeyController) {
    connect(&preferences, &Preferences::changed, this, [this](PreferenceKey key) {
        if (key == Key::launcherKeyboardShortcut)
            Q_EMIT shortcutChanged();
        if (key == Key::launcherKeyboardShortcutStatus)
            Q_EMIT statusChanged();
    });
}

LauncherKeyboardShortcut ShortcutSettings::shortcut() const {
    return keyboardShortcutFromRawValue(m_preferences.value<Key::launcherKeyboardShortcut>());
}

QString ShortcutSettings::title() const {
    return zelmo::title(shortcut());
}

bool ShortcutSettings::isControlSpace() const {
    return shortcut() == LauncherKeyboardShortcut::controlSpace;
}

QString ShortcutSettings::status() const {
    return m_preferences.value<Key::launcherKeyboardShortcutStatus>();
}

bool ShortcutSettings::statusIsFailure() const {
    return status().startsWith(QLatin1StringView("Could not"));
}

void ShortcutSettings::stepToNext() {
    const auto next = (static_cast<std::size_t>(shortcut()) + 1) % launcherKeyboardShortcutTable.size();
    take(static_cast<LauncherKeyboardShortcut>(next));
}

void ShortcutSettings::useControlSpace() {
    take(LauncherKeyboardShortcut::controlSpace);
}

void ShortcutSettings::take(LauncherKeyboardShortcut shortcut) {
    m_preferences.setValue<Key::launcherKeyboardShortcut>(rawValue(shortcut));
    m_hotKeyController.configure();
}

} // namespace zelmo
