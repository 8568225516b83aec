#include "TreePicture.h"

#include "TemporaryFolder.h"

#include <QCryptographicHash>
#include <QHash>

#include <array>
#include <filesystem>
#include <sys/xattr.h>

namespace zelmo::test {

namespace {

QByteArray attributesOf(const char* path) {
    std::array<char, 4096> names;
    const ssize_t size = llistxattr(path, names.data(), names.size());
    QList<QByteArray> attributes;
    for (const QByteArray& name : QByteArray(names.data(), std::max<ssize_t>(size, 0)).split('\0')) {
        std::array<char, 4096> value;
        const ssize_t length = name.isEmpty() ? -1 : lgetxattr(path, name.constData(), value.data(), value.size());
        if (length >= 0)
            attributes.append(name + "=" + QByteArray(value.data(), length));
    }
    std::sort(attributes.begin(), attributes.end());
    return attributes.join(',');
}

} // namespace

QList<QByteArray> pictureOf(const QByteArray& path) {
    namespace fs = std::filesystem;
    std::vector<fs::path> paths{path.toStdString()};
    struct stat status {};
    if (lstat(path.constData(), &status) != 0)
        return {};
    if (S_ISDIR(status.st_mode)) {
        for (const auto& entry : fs::recursive_directory_iterator(paths.front()))
            paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());

    QList<QByteArray> lines;
    QHash<ino_t, QByteArray> firstNames;
    for (const fs::path& each : paths) {
        const QByteArray name = QByteArray::fromStdString(each.string()).mid(path.size());
        if (lstat(each.c_str(), &status) != 0)
            continue;
        QByteArray contents;
        if (S_ISREG(status.st_mode))
            contents =
                QCryptographicHash::hash(TemporaryFolder::contentsOf(each.c_str()), QCryptographicHash::Sha1).toHex();
        else if (S_ISLNK(status.st_mode))
            contents = QByteArray::fromStdString(fs::read_symlink(each).string());
        if (!S_ISDIR(status.st_mode) && !firstNames.contains(status.st_ino))
            firstNames.insert(status.st_ino, name);
        // Removing and putting back a file gives its folder another time; what keeps times is told by the files.
        const QByteArray time = S_ISDIR(status.st_mode)
                                    ? QByteArray()
                                    : QByteArray::number(static_cast<qint64>(status.st_mtim.tv_sec)) + "." +
                                          QByteArray::number(static_cast<qint64>(status.st_mtim.tv_nsec));
        lines.append(name + "|" + QByteArray::number(status.st_mode, 8) + "|" + time + "|" + contents + "|" +
                     attributesOf(each.c_str()) + "|" + firstNames.value(status.st_ino));
    }
    return lines;
}

} // namespace zelmo::test
