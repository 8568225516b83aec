#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <string_view>

// What the raw text of a key means. All functions are pure.
namespace zelmo::DesktopEntryValue {

// Nothing when the value is not UTF-8. An escape that means nothing stays as it is written.
std::optional<QByteArray> bytes(std::string_view raw);
std::optional<QString> text(std::string_view raw);
// The parts between semicolons; nothing when the value is not UTF-8 or holds an escape that means nothing.
std::optional<QList<QByteArray>> list(std::string_view raw);
// Anything but "true" and "1" is false.
bool flag(std::string_view raw);

} // namespace zelmo::DesktopEntryValue
