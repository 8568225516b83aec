#include "app/MenuBar.h"

#include "platform/linux/session/BusAddresses.h"
#include "platform/linux/x11/QtX11Connection.h"

namespace zelmo {

MenuBar::MenuBar(MenuBarServices services)
    : m_connection(QtX11Connection::current() ? X11Connection::open() : nullptr),
      m_item(BusAddresses::fromEnvironment().session, m_connection.get()), m_desktop(m_connection.get()),
      m_extra({.statusItem = m_item,
               .store = services.store,
               .preferences = services.preferences,
               .application = services.application,
               .panel = {.desktop = m_desktop,
                         .captureDesktop = std::move(services.captureDesktop),
                         .reducesMotion = std::move(services.reducesMotion)}}) {}

} // namespace zelmo
