#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>

class QImage;

namespace zelmo {

// A picture as the desktop's status items are sent: 32 bits a pixel, alpha first, each in network order.
struct NotifierPixmap {
    static NotifierPixmap of(const QImage& image);

    int width = 0;
    int height = 0;
    QByteArray bytes;
};
using NotifierPixmaps = QList<NotifierPixmap>;

struct NotifierToolTip {
    QString iconName;
    NotifierPixmaps icons;
    QString title;
    QString description;
};

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip);

// Before any of them is sent or received.
void registerNotifierTypes();

} // namespace zelmo

Q_DECLARE_METATYPE(zelmo::NotifierPixmap)
Q_DECLARE_METATYPE(zelmo::NotifierToolTip)
