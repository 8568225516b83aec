#include "platform/linux/launching/SessionBus.h"

#include <QFile>

namespace zelmo {

bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

void keepRunningWithout(GDBusConnection& bus) {
    g_dbus_connection_set_exit_on_close(&bus, FALSE);
}

GObjectPointer<GDBusConnection> sessionBus() {
    if (!hasSessionBus())
        return nullptr;
    GObjectPointer<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (bus)
        keepRunningWithout(*bus);
    return bus;
}

} // namespace zelmo
