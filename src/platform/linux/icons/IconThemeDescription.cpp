#include "platform/linux/icons/IconThemeDescription.h"

#include "platform/linux/icons/IconThemeName.h"
#include "platform/linux/icons/ThemeKeyFile.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace zelmo {

namespace {

constexpr int sizeLimit = 65535;
constexpr int folderLimit = 8192;
constexpr int parentLimit = 32;

QList<QByteArray> listValue(const ThemeKeyFile& file, const QByteArray& key) {
    QList<QByteArray> list;
    for (const QByteArray& item : file.value("Icon Theme", key).value_or(QByteArray()).split(',')) {
        if (const QByteArray name = item.trimmed(); !name.isEmpty())
            list.append(name);
    }
    return list;
}

int numberValue(const ThemeKeyFile& file, const QByteArray& group, const QByteArray& key, int fallback) {
    bool isNumber = false;
    const int number = file.value(group, key).value_or(QByteArray()).toInt(&isNumber);
    return isNumber && number >= 0 && number <= sizeLimit ? number : fallback;
}

bool staysInside(const QByteArray& path) {
    return !path.startsWith('/') && !path.contains('\0') && !path.split('/').contains("..");
}

std::optional<IconThemeFolder> readFolder(const ThemeKeyFile& file, const QByteArray& path) {
    IconThemeFolder folder;
    folder.path = path;
    folder.size = numberValue(file, path, "Size", 0);
    if (folder.size == 0 || !staysInside(path))
        return std::nullopt;
    folder.scale = std::max(1, numberValue(file, path, "Scale", 1));
    folder.minimum = numberValue(file, path, "MinSize", folder.size);
    folder.maximum = numberValue(file, path, "MaxSize", folder.size);
    folder.threshold = numberValue(file, path, "Threshold", 2);
    const QByteArray type = file.value(path, "Type").value_or(QByteArray());
    if (type == "Fixed")
        folder.type = IconFolderType::fixed;
    else if (type == "Scalable")
        folder.type = IconFolderType::scalable;
    return folder;
}

} // namespace

bool IconThemeFolder::matches(int points, double wantedScale) const {
    if (std::abs(scale - wantedScale) > 1e-6)
        return false;
    switch (type) {
    case IconFolderType::fixed:
        return points == size;
    case IconFolderType::scalable:
        return points >= minimum && points <= maximum;
    case IconFolderType::threshold:
        return points >= size - threshold && points <= size + threshold;
    }
    return false;
}

double IconThemeFolder::distance(double pixels) const {
    if (type == IconFolderType::threshold && pixels >= (size - threshold) * double(scale) &&
        pixels <= (size + threshold) * double(scale))
        return 0;
    const double lowest = (type == IconFolderType::fixed ? size : minimum) * double(scale);
    const double highest = (type == IconFolderType::fixed ? size : maximum) * double(scale);
    return std::max({lowest - pixels, pixels - highest, 0.0});
}

double IconThemeFolder::drawnPixels(double pixels) const {
    if (type != IconFolderType::scalable)
        return size * double(scale);
    return std::max(std::min(pixels, maximum * double(scale)), minimum * double(scale));
}

std::optional<IconThemeDescription> IconThemeDescription::parse(const QByteArray& bytes) {
    const ThemeKeyFile file = ThemeKeyFile::parse(bytes);
    if (!file.hasGroup("Icon Theme"))
        return std::nullopt;
    IconThemeDescription description;
    for (const QByteArray& parent : listValue(file, "Inherits")) {
        if (isFolderName(parent) && description.parents.size() < parentLimit)
            description.parents.append(parent);
    }
    QSet<QByteArray> seen;
    for (const QByteArray& path : listValue(file, "Directories") + listValue(file, "ScaledDirectories")) {
        if (seen.contains(path) || seen.size() == folderLimit)
            continue;
        seen.insert(path);
        if (const auto folder = readFolder(file, path))
            description.folders.push_back(*folder);
    }
    return description;
}

std::optional<IconThemeFolder> IconThemeDescription::conventionalFolder(const QByteArray& name) {
    IconThemeFolder folder;
    const qsizetype at = name.indexOf('@');
    if (at >= 0)
        folder.scale = name.sliced(at + 1).replace('x', "").toInt();
    const QByteArray base = name.left(at < 0 ? name.size() : at);
    if (base == "scalable") {
        folder.type = IconFolderType::scalable;
        folder.size = 128;
        folder.maximum = 512;
        folder.minimum = 1;
    } else {
        const QList<QByteArray> sides = base.split('x');
        if (sides.size() != 2 || sides[0] != sides[1])
            return std::nullopt;
        folder.size = folder.minimum = folder.maximum = sides[0].toInt();
    }
    if (folder.size < 1 || folder.size > sizeLimit || folder.scale < 1 || folder.scale > sizeLimit)
        return std::nullopt;
    return folder;
}

} // namespace zelmo
