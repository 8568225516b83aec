#include "shell/ZelmoAppDelegate.h"

#include "catalog/LauncherStore.h"
#include "hotkey/LauncherHotKeyController.h"
#include "shell/SharedApplication.h"

namespace zelmo {

ZelmoAppDelegate::ZelmoAppDelegate(SharedApplication& application, LauncherStore& store,
                                   LauncherHotKeyController& hotKeyController)
    : m_application(application), m_store(store), m_hotKeyController(hotKeyController) {}

void ZelmoAppDelegate::applicationDidFinishLaunching() {
    // Once more: whatever came up in the meantime may have taken another.
    m_application.setActivationPolicy(ActivationPolicy::regular);
    m_hotKeyController.configure();
    QMetaObject::invokeMethod(
        this, [this] { m_store.showOverlay(); }, Qt::QueuedConnection);
}

bool ZelmoAppDelegate::applicationShouldHandleReopen(bool) {
    m_store.showOverlay();
    return true;
}

void ZelmoAppDelegate::handle(ApplicationRequest request) {
    switch (request) {
    case ApplicationRequest::activate:
        applicationShouldHandleReopen(m_store.overlayIsVisible());
        return;
    case ApplicationRequest::settings:
        m_store.showSettings();
        return;
    case ApplicationRequest::refresh:
        m_store.refresh();
        return;
    case ApplicationRequest::quit:
        m_application.terminate();
        return;
    }
}

} // namespace zelmo
