#include "appearance/AppIconStyle.h"

#include "appearance/StyleTable.h"
#include "preferences/Preferences.h"

namespace zelmo {

namespace {

struct IconRow {
    AppIconStyle style;
    std::string_view rawValue;
    std::string_view title;
};

constexpr StyleTable iconTable(std::array{
    IconRow{AppIconStyle::mosaic, "mosaic", "Mosaic"},
    IconRow{AppIconStyle::aurora, "aurora", "Aurora"},
    IconRow{AppIconStyle::stack, "stack", "Stack"},
    IconRow{AppIconStyle::spark, "spark", "Spark"},
});

} // namespace

QString rawValue(AppIconStyle style) {
    return latin1(iconTable[style].rawValue);
}

QString title(AppIconStyle style) {
    return latin1(iconTable[style].title);
}

std::optional<AppIconStyle> appIconStyleFromRawValue(QStringView rawValue) {
    return iconTable.find(rawValue);
}

AppIconStyle chosenAppIconStyle(const Preferences& preferences) {
    return appIconStyleFromRawValue(preferences.value<PreferenceKey::appIconStyle>()).value_or(AppIconStyle::mosaic);
}

} // namespace zelmo
