#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QDBusMetaType>
#include <QImage>
#include <QtEndian>

namespace zelmo {

NotifierPixmap NotifierPixmap::of(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_ARGB32);
    NotifierPixmap pixmap{.width = plain.width(), .height = plain.height(), .bytes = {}};
    pixmap.bytes.reserve(plain.sizeInBytes());
    for (int y = 0; y < plain.height(); ++y) {
        const auto* line = reinterpret_cast<const quint32*>(plain.constScanLine(y));
        for (int x = 0; x < plain.width(); ++x) {
            const quint32 pixel = qToBigEndian(line[x]);
            pixmap.bytes.append(reinterpret_cast<const char*>(&pixel), sizeof pixel);
        }
    }
    return pixmap;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap) {
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip) {
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.icons << toolTip.title << toolTip.description;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip) {
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.icons >> toolTip.title >> toolTip.description;
    argument.endStructure();
    return argument;
}

void registerNotifierTypes() {
    qRegisterMetaType<NotifierPixmaps>("zelmo::NotifierPixmaps");
    qDBusRegisterMetaType<NotifierPixmap>();
    qDBusRegisterMetaType<NotifierPixmaps>();
    qDBusRegisterMetaType<NotifierToolTip>();
}

} // namespace zelmo
