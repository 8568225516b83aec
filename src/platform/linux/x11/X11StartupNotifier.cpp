#include "platform/linux/x11/X11StartupNotifier.h"

#include <QCoreApplication>
#include <QSysInfo>
#include <QTimer>

#define SN_API_NOT_YET_FROZEN
#include <libsn/sn.h>

// The library has this function by another name than its header says, and the header's one for any other property
// does nothing.
extern "C" void sn_launcher_set_application_id(SnLauncherContext* context, const char* desktopFile);

namespace zelmo {

X11StartupNotifier::X11StartupNotifier(X11Connection* connection) : m_connection(connection) {
    if (m_connection)
        m_display = sn_xcb_display_new(m_connection->get(), nullptr, nullptr);
}

X11StartupNotifier::~X11StartupNotifier() {
    for (const auto& [token, context] : m_announced) {
        sn_launcher_context_complete(context);
        sn_launcher_context_unref(context);
    }
    if (!m_display)
        return;
    m_connection->flush();
    sn_display_unref(m_display);
}

QByteArray X11StartupNotifier::token(const StartupDescription&) {
    if (!m_connection)
        return {};
    // The same form as of an announced one, of which window managers read the time at the end.
    return "zelmo-" + QByteArray::number(QCoreApplication::applicationPid()) + '-' +
           QSysInfo::machineHostName().toLocal8Bit() + '-' + QByteArray::number(++m_count) + "_TIME" +
           QByteArray::number(m_connection->serverTime());
}

QByteArray X11StartupNotifier::announcedToken(const StartupDescription& program) {
    if (!m_display)
        return {};
    SnLauncherContext* context = sn_launcher_context_new(m_display, m_connection->screenNumber());
    sn_launcher_context_set_name(context, program.name.constData());
    sn_launcher_context_set_description(context, program.name.constData());
    if (!program.entryId.isEmpty())
        sn_launcher_set_application_id(context, program.entryId.constData());
    if (!program.startupClass.isEmpty())
        sn_launcher_context_set_wmclass(context, program.startupClass.constData());
    sn_launcher_context_initiate(context, "zelmo", program.name.constData(), m_connection->serverTime());
    m_connection->flush();
    QByteArray token(sn_launcher_context_get_startup_id(context));
    m_announced.emplace(token, context);
    QTimer::singleShot(longestWait, this, [this, token] { cancel(token); });
    return token;
}

void X11StartupNotifier::cancel(const QByteArray& token) {
    const auto found = m_announced.find(token);
    if (found == m_announced.end())
        return;
    sn_launcher_context_complete(found->second);
    sn_launcher_context_unref(found->second);
    m_announced.erase(found);
    m_connection->flush();
}

void X11StartupNotifier::complete(const QByteArray& token) {
    if (!m_display || token.isEmpty())
        return;
    SnLauncheeContext* context = sn_launchee_context_new(m_display, m_connection->screenNumber(), token.constData());
    sn_launchee_context_complete(context);
    sn_launchee_context_unref(context);
    m_connection->flush();
}

} // namespace zelmo
