#pragma once

#include "hotkey/HotKeyService.h"

#include <QString>

#include <array>
#include <string_view>

namespace zelmo {

// The shortcuts that can summon the wall, in the order of the settings' picker.
enum class LauncherKeyboardShortcut { optionSpace, controlSpace, commandSpace, off };

struct LauncherKeyboardShortcutRow {
    LauncherKeyboardShortcut shortcut;
    std::string_view rawValue; // under which it is stored
    std::string_view title;
    std::optional<HotKeyCombination> combination; // none: nothing is registered
};

inline constexpr std::array launcherKeyboardShortcutTable{
    LauncherKeyboardShortcutRow{LauncherKeyboardShortcut::optionSpace, "optionSpace", "Option + Space",
                                HotKeyCombination{spaceKeyCode, optionModifier}},
    LauncherKeyboardShortcutRow{LauncherKeyboardShortcut::controlSpace, "controlSpace", "Control + Space",
                                HotKeyCombination{spaceKeyCode, controlModifier}},
    LauncherKeyboardShortcutRow{LauncherKeyboardShortcut::commandSpace, "commandSpace", "Command + Space",
                                HotKeyCombination{spaceKeyCode, commandModifier}},
    LauncherKeyboardShortcutRow{LauncherKeyboardShortcut::off, "off", "Off", std::nullopt},
};

QString rawValue(LauncherKeyboardShortcut shortcut);
QString title(LauncherKeyboardShortcut shortcut);
std::optional<HotKeyCombination> combination(LauncherKeyboardShortcut shortcut);
// Option + Space for a text that is not exactly one of the raw values.
LauncherKeyboardShortcut keyboardShortcutFromRawValue(QStringView rawValue);

namespace detail {

constexpr bool shortcutTableIsSound() {
    for (std::size_t i = 0; i < launcherKeyboardShortcutTable.size(); ++i) {
        if (static_cast<std::size_t>(launcherKeyboardShortcutTable[i].shortcut) != i)
            return false;
        for (std::size_t j = 0; j < i; ++j) {
            if (launcherKeyboardShortcutTable[i].rawValue == launcherKeyboardShortcutTable[j].rawValue)
                return false;
        }
    }
    return launcherKeyboardShortcutTable.size() == static_cast<std::size_t>(LauncherKeyboardShortcut::off) + 1;
}
static_assert(shortcutTableIsSound(), "one row for each shortcut, in their order, and no raw value stands twice");

} // namespace detail

} // namespace zelmo
