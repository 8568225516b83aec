#include "shell/ZelmoApp.h"

#include "catalog/LauncherStore.h"
#include "hotkey/LauncherHotKeyController.h"
#include "shell/SharedApplication.h"
#include "shell/ZelmoAppDelegate.h"

namespace zelmo {

ZelmoApp::ZelmoApp(const ZelmoAppServices& services) {
    services.application.setApplicationIconImage([render = services.renderIcon] { return render(iconPoints); });
    services.application.setActivationPolicy(ActivationPolicy::regular);
    m_launcherStore = services.makeStore();
    m_hotKeyController = services.makeHotKeyController(*m_launcherStore);
    m_appDelegate = std::make_unique<ZelmoAppDelegate>(services.application, *m_launcherStore, *m_hotKeyController);
}

ZelmoApp::~ZelmoApp() = default;

} // namespace zelmo
