#pragma once

#include "settings/AppIconSettings.h"
#include "settings/AppearanceSettings.h"
#include "settings/ComingSoonSettings.h"
#include "settings/HiddenAppsSettings.h"
#include "settings/ShortcutSettings.h"

namespace zelmo {

// What the settings change. All of it outlives them.
struct SettingsServices {
    Preferences& preferences;
    LauncherStore& store;
    LauncherHotKeyController& hotKeyController;
    SharedApplication& application;
};

// Everything that the settings show and do, by section. Writes each change to the preferences at once and follows those
// that are made elsewhere. Lives as long as its view is open; main thread.
class SettingsForm : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its services")
    Q_PROPERTY(zelmo::AppearanceSettings* appearance READ appearance CONSTANT)
    Q_PROPERTY(zelmo::AppIconSettings* appIcon READ appIcon CONSTANT)
    Q_PROPERTY(zelmo::ShortcutSettings* shortcut READ shortcut CONSTANT)
    Q_PROPERTY(zelmo::HiddenAppsSettings* hiddenApps READ hiddenApps CONSTANT)
    Q_PROPERTY(zelmo::ComingSoonSettings* comingSoon READ comingSoon CONSTANT)

public:
    explicit SettingsForm(const SettingsServices& services)
        : m_appearance(new AppearanceSettings(services.preferences, this)),
          m_appIcon(new AppIconSettings(services.preferences, services.application, this)),
          m_shortcut(new ShortcutSettings(services.preferences, services.hotKeyController, this)),
          m_hiddenApps(new HiddenAppsSettings(services.preferences, services.store, this)),
          m_comingSoon(new ComingSoonSettings(services.preferences, this)) {}

    AppearanceSettings* appearance() const { return m_appearance; }
    AppIconSettings* appIcon() const { return m_appIcon; }
    ShortcutSettings* shortcut() const { return m_shortcut; }
    HiddenAppsSettings* hiddenApps() const { return m_hiddenApps; }
    ComingSoonSettings* comingSoon() const { return m_comingSoon; }

private:
    AppearanceSettings* m_appearance;
    AppIconSettings* m_appIcon;
    ShortcutSettings* m_shortcut;
    HiddenAppsSettings* m_hiddenApps;
    ComingSoonSettings* m_comingSoon;
};

} // namespace zelmo
