#include "platform/linux/launching/ControlGroups.h"

#include "platform/linux/launching/LaunchContext.h"
#include "platform/linux/launching/SessionBus.h"

#include <memory>

namespace zelmo {

namespace {

constexpr int answerLimit = 5000; // ms

// A name's characters that a unit's name can't have, and the dash, which parts it, as \xHH.
QByteArray escaped(const QByteArray& name) {
    QByteArray text;
    for (const char c : name) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ':' ||
                             c == '_' || c == '.';
        if (isPlain)
            text += c;
        else
            text += "\\x" + QByteArray(1, c).toHex();
    }
    return text;
}

GVariant* scopeRequest(const QByteArray& unit, pid_t process) {
    GVariantBuilder properties;
    g_variant_builder_init(&properties, G_VARIANT_TYPE("a(sv)"));
    const guint32 processes[] = {static_cast<guint32>(process)};
    g_variant_builder_add(&properties, "(sv)", "PIDs",
                          g_variant_new_fixed_array(G_VARIANT_TYPE_UINT32, processes, 1, sizeof processes[0]));
    // A scope that failed leaves nothing behind.
    g_variant_builder_add(&properties, "(sv)", "CollectMode", g_variant_new_string("inactive-or-failed"));
    GVariantBuilder others;
    g_variant_builder_init(&others, G_VARIANT_TYPE("a(sa(sv))"));
    return g_variant_new("(ssa(sv)a(sa(sv)))", unit.constData(), "fail", &properties, &others);
}

struct Request {
    pid_t process;
    QByteArray unit;
};

// Nobody looks at the answer; while it is waited for, GIO keeps the connection, which else might be closed before the
// request is out.
void dropAnswer(GObject* bus, GAsyncResult* result, gpointer) {
    if (GVariant* answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr))
        g_variant_unref(answer);
}

void sendRequest(GObject*, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<Request> request(static_cast<Request*>(data));
    const GObjectPointer<GDBusConnection> bus(g_bus_get_finish(result, nullptr));
    if (!bus)
        return;
    keepRunningWithout(*bus);
    g_dbus_connection_call(bus.get(), "org.freedesktop.systemd1", "/org/freedesktop/systemd1",
                           "org.freedesktop.systemd1.Manager", "StartTransientUnit",
                           scopeRequest(request->unit, request->process), nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START,
                           answerLimit, nullptr, dropAnswer, nullptr);
}

} // namespace

void moveToOwnControlGroup(pid_t process, const QByteArray& name) {
    // Without an address GIO would start a bus.
    if (!hasSessionBus())
        return;
    auto request = std::make_unique<Request>(Request{
        .process = process,
        .unit = "app-zelmo-" + escaped(name) + '-' + QByteArray::number(static_cast<qint64>(process)) + ".scope"});
    g_bus_get(G_BUS_TYPE_SESSION, nullptr, sendRequest, request.release());
}

} // namespace zelmo
