#include "settings/AppIconSettings.h"

#include "appearance/AppIconStyle.h"
#include "appearance/LauncherBackgroundStyle.h"
#include "iconart/ZelmoIconFactory.h"
#include "shell/SharedApplication.h"
#include "ui/WallStyle.h"

namespace zelmo {

namespace {

using Key = PreferenceKey;

LauncherBackgroundStyle background(const Preferences& preferences) {
    return backgroundStyleFromRawValue(preferences.value<Key::launcherBackgroundStyle>())
        .value_or(LauncherBackgroundStyle::desktopBlur);
}

} // namespace

AppIconSettings::AppIconSettings(Preferences& preferences, SharedApplication& application, QObject* parent)
    : QObject(parent), m_preferences(preferences), m_application(application) {
    connect(&preferences, &Preferences::changed, this, [this](PreferenceKey key) {
        if (key == Key::appIconStyle)
            Q_EMIT indexChanged();
        if (key == Key::launcherBackgroundStyle || key == Key::launcherBackgroundRed ||
            key == Key::launcherBackgroundGreen || key == Key::launcherBackgroundBlue)
            Q_EMIT previewChanged();
    });
}

QStringList AppIconSettings::titles() const {
    QStringList list;
    for (int i = 0; i < appIconStyleCount; ++i)
        list.append(title(static_cast<AppIconStyle>(i)));
    return list;
}

int AppIconSettings::index() const {
    return static_cast<int>(chosenAppIconStyle(m_preferences));
}

void AppIconSettings::choose(int index) {
    if (index < 0 || index >= appIconStyleCount)
        return;
    m_preferences.setValue<Key::appIconStyle>(rawValue(static_cast<AppIconStyle>(index)));
    m_application.setApplicationIconImage(
        [&preferences = m_preferences] { return ZelmoIconFactory::appIcon(iconPoints, preferences); });
}

QList<QColor> AppIconSettings::previewColors() const {
    QList<QColor> stops;
    for (const StyleColor& stop : colors(background(m_preferences), m_preferences))
        stops.append(toQColor(stop));
    return stops;
}

bool AppIconSettings::previewIsCovered() const {
    return background(m_preferences) == LauncherBackgroundStyle::desktopBlur;
}

QString AppIconSettings::previewCaption() const {
    return title(background(m_preferences)) + u" preview";
}

} // namespace zelmo
