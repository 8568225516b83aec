#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <array>
#include <string_view>
#include <type_traits>
#include <variant>

namespace zelmo {

// Every preference of the program, in the order of the table below.
enum class PreferenceKey {
    launcherBackgroundStyle,
    launcherFontStyle,
    launcherInterfaceStyle,
    launcherKeyboardShortcut,
    launcherKeyboardShortcutStatus,
    appIconStyle,
    launcherBackgroundRed,
    launcherBackgroundGreen,
    launcherBackgroundBlue,
    launcherTextRed,
    launcherTextGreen,
    launcherTextBlue,
    titleFontSize,
    subtitleFontSize,
    appNameFontSize,
    appCategoryFontSize,
    searchFontSize,
    categoryChipFontSize,
    showAppTileBackground,
    openAtLoginLater,
    appUsageRecords,
    hiddenAppPaths,
};

// Marks a preference that holds raw data; it reads as empty data until it is written.
struct DataPreference {};
// Marks a preference that holds an array of strings; it reads as an empty array until it is written.
struct StringArrayPreference {};

// A default says the type of its preference: string, real, boolean, data or array of strings.
using PreferenceDefault = std::variant<std::string_view, double, bool, DataPreference, StringArrayPreference>;

struct PreferenceRow {
    PreferenceKey key;
    std::string_view name;
    PreferenceDefault defaultValue;
};

// The one table of keys, types and defaults. Colour components are sRGB from 0 to 1, font sizes are points.
inline constexpr std::array preferenceTable{
    PreferenceRow{PreferenceKey::launcherBackgroundStyle, "launcherBackgroundStyle", std::string_view("desktopBlur")},
    PreferenceRow{PreferenceKey::launcherFontStyle, "launcherFontStyle", std::string_view("appleDefault")},
    PreferenceRow{PreferenceKey::launcherInterfaceStyle, "launcherInterfaceStyle", std::string_view("grid")},
    PreferenceRow{PreferenceKey::launcherKeyboardShortcut, "launcherKeyboardShortcut", std::string_view("optionSpace")},
    PreferenceRow{PreferenceKey::launcherKeyboardShortcutStatus, "launcherKeyboardShortcutStatus",
                  std::string_view("Option + Space is assigned to Zelmo.")},
    PreferenceRow{PreferenceKey::appIconStyle, "appIconStyle", std::string_view("mosaic")},
    PreferenceRow{PreferenceKey::launcherBackgroundRed, "launcherBackgroundRed", 0.05},
    PreferenceRow{PreferenceKey::launcherBackgroundGreen, "launcherBackgroundGreen", 0.08},
    PreferenceRow{PreferenceKey::launcherBackgroundBlue, "launcherBackgroundBlue", 0.14},
    PreferenceRow{PreferenceKey::launcherTextRed, "launcherTextRed", 1.0},
    PreferenceRow{PreferenceKey::launcherTextGreen, "launcherTextGreen", 0.98},
    PreferenceRow{PreferenceKey::launcherTextBlue, "launcherTextBlue", 0.92},
    PreferenceRow{PreferenceKey::titleFontSize, "titleFontSize", 32.0},
    PreferenceRow{PreferenceKey::subtitleFontSize, "subtitleFontSize", 12.0},
    PreferenceRow{PreferenceKey::appNameFontSize, "appNameFontSize", 15.0},
    PreferenceRow{PreferenceKey::appCategoryFontSize, "appCategoryFontSize", 11.0},
    PreferenceRow{PreferenceKey::searchFontSize, "searchFontSize", 18.0},
    PreferenceRow{PreferenceKey::categoryChipFontSize, "categoryChipFontSize", 14.0},
    PreferenceRow{PreferenceKey::showAppTileBackground, "showAppTileBackground", false},
    PreferenceRow{PreferenceKey::openAtLoginLater, "openAtLoginLater", false},
    PreferenceRow{PreferenceKey::appUsageRecords, "appUsageRecords", DataPreference{}},
    PreferenceRow{PreferenceKey::hiddenAppPaths, "hiddenAppPaths", StringArrayPreference{}},
};

inline constexpr std::size_t preferenceCount = preferenceTable.size();

constexpr std::size_t preferenceIndex(PreferenceKey key) {
    return static_cast<std::size_t>(key);
}

constexpr const PreferenceRow& preferenceRow(PreferenceKey key) {
    return preferenceTable[preferenceIndex(key)];
}

namespace detail {

constexpr bool preferenceTableIsSound() {
    for (std::size_t i = 0; i < preferenceCount; ++i) {
        if (preferenceIndex(preferenceTable[i].key) != i)
            return false;
        for (std::size_t j = 0; j < i; ++j) {
            if (preferenceTable[i].name == preferenceTable[j].name)
                return false;
        }
    }
    return true;
}
static_assert(preferenceTableIsSound(), "rows stand in the order of PreferenceKey and no name stands twice");

template <typename Default>
struct PreferenceStored;
template <>
struct PreferenceStored<std::string_view> {
    using type = QString;
};
template <>
struct PreferenceStored<double> {
    using type = double;
};
template <>
struct PreferenceStored<bool> {
    using type = bool;
};
template <>
struct PreferenceStored<DataPreference> {
    using type = QByteArray;
};
template <>
struct PreferenceStored<StringArrayPreference> {
    using type = QStringList;
};

} // namespace detail

// A stored value keeps the type it was written with.
using PreferenceValue = std::variant<QString, double, bool, QByteArray, QStringList>;
using PreferenceValues = QHash<QString, PreferenceValue>;

// The C++ type of one preference: QString, double, bool, QByteArray or QStringList.
template <PreferenceKey key>
using PreferenceType = typename detail::PreferenceStored<
    std::variant_alternative_t<preferenceRow(key).defaultValue.index(), PreferenceDefault>>::type;

inline QString preferenceName(PreferenceKey key) {
    const std::string_view name = preferenceRow(key).name;
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

template <PreferenceKey key>
PreferenceType<key> preferenceDefault() {
    using Type = PreferenceType<key>;
    if constexpr (std::is_same_v<Type, QString>) {
        const auto text = std::get<std::string_view>(preferenceRow(key).defaultValue);
        return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    } else if constexpr (std::is_same_v<Type, double> || std::is_same_v<Type, bool>) {
        return std::get<Type>(preferenceRow(key).defaultValue);
    } else {
        return {};
    }
}

} // namespace zelmo
