#include "platform/linux/desktop/DesktopMotionPreference.h"

#include "platform/linux/desktop/GnomeAnimations.h"
#include "platform/linux/desktop/KdeAnimations.h"
#include "platform/linux/desktop/XSettings.h"
#include "platform/linux/x11/X11Connection.h"

#include <gio/gio.h>

namespace zelmo {

namespace {

constexpr std::uint32_t settingsLimit = 256U * 1024;

// Empty when nobody hands out settings.
QByteArray settingsOnServer(const X11Connection& connection) {
    const xcb_atom_t selection = connection.atom("_XSETTINGS_S" + QByteArray::number(connection.screenNumber()));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection.get(), xcb_get_selection_owner(connection.get(), selection), nullptr));
    if (!reply || reply->owner == XCB_WINDOW_NONE)
        return {};
    return connection.property(reply->owner, QByteArrayLiteral("_XSETTINGS_SETTINGS"), 8, settingsLimit);
}

} // namespace

DesktopMotionPreference::DesktopMotionPreference(const X11Connection* connection, QList<QByteArray> configFolders)
    : m_connection(connection), m_configFolders(std::move(configFolders)) {}

bool DesktopMotionPreference::reducesMotion() const {
    if (const auto reduces = m_connection ? xSettingsReduceMotion(settingsOnServer(*m_connection)) : std::nullopt)
        return *reduces;
    if (const auto reduces = gnomeReducesMotion(g_settings_schema_source_get_default()))
        return *reduces;
    return kdeReducesMotion(m_configFolders).value_or(false);
}

} // namespace zelmo
