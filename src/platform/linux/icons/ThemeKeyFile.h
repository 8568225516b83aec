#pragma once

#include <QByteArray>
#include <QHash>

#include <optional>

namespace zelmo {

// The groups, keys and values of a theme's description or of a toolkit's settings. A plain value;
// translations of a key are left out, the first of several equal keys counts.
class ThemeKeyFile {
public:
    static ThemeKeyFile parse(const QByteArray& bytes);
    // Nothing when the file can't be read or is beyond one mebibyte.
    static std::optional<ThemeKeyFile> read(const QByteArray& path);

    bool hasGroup(const QByteArray& group) const { return m_groups.contains(group); }
    std::optional<QByteArray> value(const QByteArray& group, const QByteArray& key) const;

private:
    QHash<QByteArray, QHash<QByteArray, QByteArray>> m_groups;
};

} // namespace zelmo
