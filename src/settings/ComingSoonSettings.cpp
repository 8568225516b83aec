#include "settings/ComingSoonSettings.h"

#include "appearance/LauncherInterfaceStyle.h"

#include <algorithm>

namespace zelmo {

ComingSoonSettings::ComingSoonSettings(Preferences& preferences, QObject* parent)
    : QObject(parent),
      m_interfaceStyle(PickerSetting::make<PreferenceKey::launcherInterfaceStyle, LauncherInterfaceStyle>(
          preferences, QStringLiteral("Interface"), interfaceStyleCount, interfaceStyleFromRawValue, this)) {}

QString ComingSoonSettings::symbol() const {
    return m_showsComingSoonExtras ? QStringLiteral("wand.and.stars") : QStringLiteral("sparkles");
}

QString ComingSoonSettings::title() const {
    return m_showsComingSoonExtras ? QStringLiteral("Experimental Interfaces") : QStringLiteral("Coming Soon");
}

QString ComingSoonSettings::caption() const {
    return m_showsComingSoonExtras ? QStringLiteral("Unlocked")
                                   : QString::number(std::max(tapsNeeded - m_comingSoonTapCount, 0));
}

void ComingSoonSettings::revealComingSoonExtras() {
    if (m_showsComingSoonExtras)
        return;
    ++m_comingSoonTapCount;
    m_showsComingSoonExtras = m_comingSoonTapCount >= tapsNeeded;
    Q_EMIT changed();
}

} // namespace zelmo
