#include "platform/linux/icons/ThemeKeyFile.h"

#include "platform/linux/files/RegularFile.h"

namespace zelmo {

namespace {

constexpr std::size_t fileLimit = 1024 * 1024;

} // namespace

ThemeKeyFile ThemeKeyFile::parse(const QByteArray& bytes) {
    ThemeKeyFile file;
    QHash<QByteArray, QByteArray>* group = nullptr;
    for (qsizetype start = 0; start < bytes.size();) {
        qsizetype end = bytes.indexOf('\n', start);
        end = end < 0 ? bytes.size() : end;
        const QByteArray line = bytes.sliced(start, end - start).trimmed();
        start = end + 1;
        if (line.startsWith('[') && line.endsWith(']')) {
            group = &file.m_groups[line.sliced(1, line.size() - 2)];
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (group == nullptr || equals <= 0 || line.startsWith('#'))
            continue;
        QByteArray key = line.left(equals).trimmed();
        // A bracket holds a language, or a flag that says how the value may be changed.
        if (const qsizetype bracket = key.indexOf('['); bracket >= 0) {
            if (!key.sliced(bracket).startsWith("[$"))
                continue;
            key.truncate(bracket);
        }
        if (!group->contains(key))
            group->insert(key, line.sliced(equals + 1).trimmed());
    }
    return file;
}

std::optional<ThemeKeyFile> ThemeKeyFile::read(const QByteArray& path) {
    const FileContents contents = readRegularFile(path, fileLimit);
    if (contents.status != FileReadStatus::read)
        return std::nullopt;
    return parse(contents.bytes);
}

std::optional<QByteArray> ThemeKeyFile::value(const QByteArray& group, const QByteArray& key) const {
    const auto found = m_groups.constFind(group);
    if (found == m_groups.cend() || !found->contains(key))
        return std::nullopt;
    return found->value(key);
}

} // namespace zelmo
