#include "platform/linux/session/BusAddresses.h"

#include <QFile>
#include <QUrl>

namespace zelmo {

BusAddresses BusAddresses::fromEnvironment() {
    BusAddresses addresses{.session = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                           .system = qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS")};
    if (addresses.session.startsWith(QLatin1StringView("autolaunch:")))
        addresses.session.clear();
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (addresses.session.isEmpty() && !runtimeFolder.isEmpty()) {
        const QString socket = runtimeFolder + QStringLiteral("/bus");
        if (QFile::exists(socket))
            addresses.session =
                QStringLiteral("unix:path=") + QString::fromLatin1(QUrl::toPercentEncoding(socket, "/"));
    }
    if (addresses.system.isEmpty())
        addresses.system = QStringLiteral("unix:path=/var/run/dbus/system_bus_socket");
    return addresses;
}

} // namespace zelmo
