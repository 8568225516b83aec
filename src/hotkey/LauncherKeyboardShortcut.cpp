#include "hotkey/LauncherKeyboardShortcut.h"

namespace zelmo {

namespace {

const LauncherKeyboardShortcutRow& row(LauncherKeyboardShortcut shortcut) {
    return launcherKeyboardShortcutTable[static_cast<std::size_t>(shortcut)];
}

QLatin1StringView latin1(std::string_view text) {
    return QLatin1StringView(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

QString rawValue(LauncherKeyboardShortcut shortcut) {
    return latin1(row(shortcut).rawValue);
}

QString title(LauncherKeyboardShortcut shortcut) {
    return latin1(row(shortcut).title);
}

std::optional<HotKeyCombination> combination(LauncherKeyboardShortcut shortcut) {
    return row(shortcut).combination;
}

LauncherKeyboardShortcut keyboardShortcutFromRawValue(QStringView rawValue) {
    for (const LauncherKeyboardShortcutRow& candidate : launcherKeyboardShortcutTable) {
        if (rawValue == latin1(candidate.rawValue))
            return candidate.shortcut;
    }
    return LauncherKeyboardShortcut::optionSpace;
}

} // namespace zelmo
