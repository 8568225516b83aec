#include "platform/linux/icons/FreedesktopIconSource.h"

#include "catalog/FileUrl.h"
#include "platform/linux/icons/IconFileDecoder.h"

#include <cmath>
#include <cstdlib>

namespace zelmo {

namespace {

// Files of one name that are tried before the icon counts as damaged.
constexpr int fileTries = 4;

QByteArray nativeName(const QString& text) {
    return FileUrl::fromPath(text).nativePath();
}

// The path without links; empty when there is nothing.
QByteArray canonicalPath(const QByteArray& path) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.constData(), nullptr), &std::free);
    return resolved ? QByteArray(resolved.get()) : QByteArray();
}

QImage bundleIcon(const QByteArray& name, const QByteArray& bundlePath, int pixels) {
    const QByteArray bundle = canonicalPath(bundlePath);
    if (bundle.isEmpty() || name.contains('\0'))
        return {};
    for (const char* extension : {"", ".icns", ".png"}) {
        const QByteArray path = canonicalPath(bundle + "/Contents/Resources/" + name + extension);
        const QByteArray inside = bundle + '/';
        if (!path.startsWith(inside))
            continue;
        if (QImage image = IconFileDecoder::decodeFile(path, pixels); !image.isNull())
            return image;
    }
    return {};
}

} // namespace

FreedesktopIconSource::FreedesktopIconSource(std::unique_ptr<IconThemeIndex> index) : m_index(std::move(index)) {}

QImage FreedesktopIconSource::icon(const AppIcon& icon, int points, double scale) const {
    const double exactPixels = points * scale;
    if (icon.name.isEmpty() || !(exactPixels >= 1 && exactPixels <= 65535))
        return {};
    const int pixels = static_cast<int>(std::lround(exactPixels));
    const QByteArray name = nativeName(icon.name);
    if (!icon.bundlePath.isEmpty())
        return bundleIcon(name, nativeName(icon.bundlePath), pixels);
    if (name.startsWith('/'))
        return name.contains('\0') ? QImage() : IconFileDecoder::decodeFile(name, pixels);
    return themedIcon(name, points, scale, pixels);
}

QImage FreedesktopIconSource::themedIcon(const QByteArray& name, int points, double scale, int pixels) const {
    for (const QByteArray& path : m_index->files(name, points, scale, fileTries)) {
        if (QImage image = IconFileDecoder::decodeFile(path, pixels); !image.isNull())
            return image;
    }
    return {};
}

} // namespace zelmo
