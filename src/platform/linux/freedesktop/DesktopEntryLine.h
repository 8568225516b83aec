#pragma once

#include <optional>
#include <string_view>

// How single lines of a desktop entry are taken apart. All functions are pure and allocate nothing for
// lines of the usual kind.
namespace zelmo::DesktopEntryLine {

// "key=value" or "key[locale]=value"; the value with the spaces that may stand before it.
struct Pair {
    std::string_view key;
    std::optional<std::string_view> locale;
    std::string_view value;
};

std::string_view withoutLeadingSpace(std::string_view text);
// The name in "[name]"; nothing when `line` is no head of a group. The name may still be a wrong one.
std::optional<std::string_view> groupName(std::string_view line);
bool isValidGroupName(std::string_view name);
std::optional<Pair> pair(std::string_view line);

} // namespace zelmo::DesktopEntryLine
