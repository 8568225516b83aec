#include "settings/HiddenAppsSettings.h"

#include "catalog/LauncherStore.h"

#include <QSet>

namespace zelmo {

HiddenAppsSettings::HiddenAppsSettings(const Preferences& preferences, LauncherStore& store, QObject* parent)
    : QObject(parent), m_preferences(preferences), m_store(store) {
    connect(&preferences, &Preferences::changed, this, [this](PreferenceKey key) {
        if (key == PreferenceKey::hiddenAppPaths)
            Q_EMIT changed();
    });
}

QString HiddenAppsSettings::sentence() const {
    const QStringList paths = m_preferences.value<PreferenceKey::hiddenAppPaths>();
    // A path that stands twice in the file hides one app.
    const auto count = QSet<QString>(paths.cbegin(), paths.cend()).size();
    if (count == 0)
        return QStringLiteral("No apps are hidden from Zelmo.");
    return QString::number(count) + u" hidden app" + (count == 1 ? u"" : u"s") + u" can be restored.";
}

void HiddenAppsSettings::restore() {
    m_store.restoreHiddenApps();
}

} // namespace zelmo
