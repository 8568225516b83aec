#include "ui/WallStyle.h"

#include "appearance/LauncherBackgroundStyle.h"
#include "appearance/LauncherFontStyle.h"
#include "preferences/Preferences.h"
#include "ui/CardMetrics.h"
#include "ui/HeaderMetrics.h"
#include "ui/WallMetrics.h"

#include <QFontMetricsF>

#include <algorithm>
#include <array>
#include <cmath>

namespace zelmo {

namespace {

using Key = PreferenceKey;

// Painted in place of a desktop that can't be seen.
constexpr std::array unseenDesktop{
    StyleColor{0.10, 0.09, 0.25},
    StyleColor{0.33, 0.17, 0.47},
    StyleColor{0.69, 0.32, 0.46},
};

// Most of the other settings are of no concern to the wall, and the records of use change all the time.
constexpr std::array foreignKeys{Key::launcherKeyboardShortcut,
                                 Key::launcherKeyboardShortcutStatus,
                                 Key::appIconStyle,
                                 Key::openAtLoginLater,
                                 Key::appUsageRecords,
                                 Key::hiddenAppPaths};

// As high as a line is drawn.
qreal lineHeight(const QFont& font) {
    return std::ceil(QFontMetricsF(font).height());
}

} // namespace

WallStyle::WallStyle(const Preferences& preferences, const FontFaces& faces)
    : m_preferences(preferences), m_resolver(faces) {
    connect(&preferences, &Preferences::changed, this, &WallStyle::note);
}

void WallStyle::note(PreferenceKey key) {
    if (std::find(foreignKeys.begin(), foreignKeys.end(), key) == foreignKeys.end())
        Q_EMIT changed();
}

QColor WallStyle::textColor() const {
    return toQColor({.red = m_preferences.value<Key::launcherTextRed>(),
                     .green = m_preferences.value<Key::launcherTextGreen>(),
                     .blue = m_preferences.value<Key::launcherTextBlue>()});
}

LauncherFontStyle WallStyle::fontStyle() const {
    return fontStyleFromRawValue(m_preferences.value<Key::launcherFontStyle>())
        .value_or(LauncherFontStyle::appleDefault);
}

QFont WallStyle::font(double size, FontWeight weight) const {
    return m_resolver.font(fontStyle(), size, weight);
}

QFont WallStyle::capitals(double size, FontWeight weight, double spacing) const {
    QFont spaced = font(size, weight);
    spaced.setCapitalization(QFont::AllUppercase);
    spaced.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    return spaced;
}

QFont WallStyle::titleFont() const {
    return font(m_preferences.value<Key::titleFontSize>(), FontWeight::heavy);
}

QFont WallStyle::subtitleFont() const {
    return capitals(m_preferences.value<Key::subtitleFontSize>(), FontWeight::semibold,
                    std::max(tracking(fontStyle()), HeaderMetrics::subtitleTracking()));
}

QFont WallStyle::searchFont() const {
    return font(m_preferences.value<Key::searchFontSize>(), FontWeight::medium);
}

QFont WallStyle::chipFont() const {
    return font(m_preferences.value<Key::categoryChipFontSize>(), FontWeight::semibold);
}

QFont WallStyle::mostUsedChipFont() const {
    QFont spaced = chipFont();
    spaced.setLetterSpacing(QFont::AbsoluteSpacing, HeaderMetrics::mostUsedTracking() * tracking(fontStyle()));
    return spaced;
}

QFont WallStyle::appNameFont() const {
    double size = m_preferences.value<Key::appNameFontSize>();
    if (variant() == AppTileVariant::minimal)
        size = std::max(size - CardMetrics::minimalNameSmaller(), CardMetrics::minimalNameMinimumSize());
    else if (variant() == AppTileVariant::tile)
        size = std::max(size, CardMetrics::tileNameMinimumSize());
    return font(size, FontWeight::semibold);
}

QFont WallStyle::appCategoryFont() const {
    const double size = m_preferences.value<Key::appCategoryFontSize>();
    if (variant() == AppTileVariant::tile)
        return capitals(std::max(size - CardMetrics::tileCategorySmaller(), CardMetrics::tileCategoryMinimumSize()),
                        FontWeight::bold, CardMetrics::categoryTracking());
    return capitals(size, FontWeight::bold, std::max(tracking(fontStyle()), CardMetrics::categoryTracking()));
}

QFont WallStyle::usageFont() const {
    return font(std::max(m_preferences.value<Key::appCategoryFontSize>() - CardMetrics::usageSmaller(),
                         CardMetrics::usageMinimumSize()),
                FontWeight::semibold);
}

QFont WallStyle::emptyTitleFont() const {
    return font(WallMetrics::emptyTitleSize(), FontWeight::semibold);
}

QFont WallStyle::emptyTextFont() const {
    return font(WallMetrics::emptyTextSize(), FontWeight::regular);
}

int WallStyle::selectionDuration() const {
    return m_reducesMotion ? 0 : CardMetrics::selectionDuration();
}

void WallStyle::setReducesMotion(bool reduces) {
    if (m_reducesMotion == reduces)
        return;
    m_reducesMotion = reduces;
    Q_EMIT changed();
}

bool WallStyle::blursDesktop() const {
    return backgroundStyleFromRawValue(m_preferences.value<Key::launcherBackgroundStyle>())
               .value_or(LauncherBackgroundStyle::desktopBlur) == LauncherBackgroundStyle::desktopBlur;
}

QList<QColor> WallStyle::backgroundColors() const {
    QList<QColor> stops;
    if (blursDesktop()) {
        std::transform(unseenDesktop.begin(), unseenDesktop.end(), std::back_inserter(stops), toQColor);
        return stops;
    }
    const auto style = backgroundStyleFromRawValue(m_preferences.value<Key::launcherBackgroundStyle>());
    for (const StyleColor& stop : colors(*style, m_preferences))
        stops.append(toQColor(stop));
    return stops;
}

AppTileVariant WallStyle::variant() const {
    return tileVariant(interfaceStyleFromRawValue(m_preferences.value<Key::launcherInterfaceStyle>())
                           .value_or(LauncherInterfaceStyle::grid));
}

qreal WallStyle::heightWith(qreal texts) const {
    const CardLayout card = layout();
    switch (variant()) {
    case AppTileVariant::grid:
        return std::max(card.minimumHeight, 2 * CardMetrics::gridPadding() + CardMetrics::gridIconFrame() +
                                                CardMetrics::gridSpacing() + texts);
    case AppTileVariant::list:
        return std::max(card.minimumHeight, 2 * CardMetrics::listVerticalPadding() + std::max(card.iconSide, texts));
    case AppTileVariant::minimal:
    case AppTileVariant::tile:
        break;
    }
    return card.minimumHeight;
}

qreal WallStyle::cardHeight() const {
    return heightWith(nameLines() * lineHeight(appNameFont()) + CardMetrics::labelSpacing() +
                      lineHeight(appCategoryFont()));
}

qreal WallStyle::rankedCardHeight() const {
    return heightWith(nameLines() * lineHeight(appNameFont()) + 2 * CardMetrics::labelSpacing() +
                      lineHeight(appCategoryFont()) + lineHeight(usageFont()));
}

int WallStyle::nameLines() const {
    const CardLayout card = layout();
    // As many as there is room for, where the height is fixed.
    const auto linesIn = [this](qreal room) {
        return std::clamp(static_cast<int>(room / lineHeight(appNameFont())), 1, CardMetrics::gridNameLines());
    };
    switch (variant()) {
    case AppTileVariant::grid:
        return CardMetrics::gridNameLines();
    case AppTileVariant::list:
        return 1;
    case AppTileVariant::minimal:
        return linesIn(card.minimumHeight - card.iconSide - CardMetrics::minimalSpacing());
    case AppTileVariant::tile:
        break;
    }
    return linesIn(card.minimumHeight - 2 * CardMetrics::tilePadding() - card.iconSide - CardMetrics::tileSpacing() -
                   CardMetrics::tileLabelSpacing() - lineHeight(appCategoryFont()));
}

CardPlate WallStyle::plate() const {
    return cardPlate(variant(), m_preferences.value<Key::showAppTileBackground>() ? TileBackgrounds::shown
                                                                                  : TileBackgrounds::none);
}

} // namespace zelmo
