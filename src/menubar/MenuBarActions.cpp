#include "menubar/MenuBarActions.h"

#include "catalog/LauncherStore.h"
#include "preferences/Preferences.h"
#include "shell/SharedApplication.h"

namespace zelmo {

MenuBarActions::MenuBarActions(LauncherStore& store, Preferences& preferences, SharedApplication& application)
    : m_store(store), m_preferences(preferences), m_application(application) {
    connect(&store, &LauncherStore::overlayIsVisibleChanged, this, &MenuBarActions::overlayTitleChanged);
    connect(&preferences, &Preferences::changed, this, [this](PreferenceKey key) {
        if (key == PreferenceKey::openAtLoginLater)
            Q_EMIT openAtLoginLaterChanged();
    });
}

QString MenuBarActions::overlayTitle() const {
    return m_store.overlayIsVisible() ? QStringLiteral("Hide App Wall") : QStringLiteral("Show App Wall");
}

bool MenuBarActions::openAtLoginLater() const {
    return m_preferences.value<PreferenceKey::openAtLoginLater>();
}

void MenuBarActions::setOpenAtLoginLater(bool opens) {
    m_preferences.setValue<PreferenceKey::openAtLoginLater>(opens);
}

void MenuBarActions::toggleOverlay() {
    m_store.toggleOverlay();
}

void MenuBarActions::refresh() {
    m_store.refresh();
}

void MenuBarActions::showSettings() {
    m_store.showSettings();
}

void MenuBarActions::quit() {
    m_application.terminate();
}

QList<StatusMenuEntry> MenuBarActions::menu() {
    const auto mark = openAtLoginLater() ? StatusMenuMark::on : StatusMenuMark::off;
    const StatusMenuEntry separator{.kind = StatusMenuKind::separator};
    return {{.title = overlayTitle(), .choose = [this] { toggleOverlay(); }},
            separator,
            {.kind = StatusMenuKind::checkbox,
             .title = openAtLoginLaterTitle(),
             .mark = mark,
             .choose = [this] { setOpenAtLoginLater(!openAtLoginLater()); }},
            {.title = refreshTitle(), .choose = [this] { refresh(); }},
            {.title = settingsTitle(), .choose = [this] { showSettings(); }},
            separator,
            {.title = quitTitle(), .choose = [this] { quit(); }}};
}

} // namespace zelmo
