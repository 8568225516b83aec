#include "appearance/LauncherInterfaceStyle.h"

#include "appearance/StyleTable.h"

namespace zelmo {

namespace {

using Style = LauncherInterfaceStyle;

struct InterfaceRow {
    Style style;
    std::string_view rawValue;
    std::string_view title;
    AppTileVariant variant;
};

constexpr StyleTable interfaceTable(std::array{
    InterfaceRow{Style::grid, "grid", "Grid", AppTileVariant::grid},
    InterfaceRow{Style::list, "list", "List", AppTileVariant::list},
    InterfaceRow{Style::minimal, "minimal", "Minimal", AppTileVariant::minimal},
    InterfaceRow{Style::tiles, "tiles", "Tiles", AppTileVariant::tile},
});

} // namespace

QString rawValue(LauncherInterfaceStyle style) {
    return latin1(interfaceTable[style].rawValue);
}

QString title(LauncherInterfaceStyle style) {
    return latin1(interfaceTable[style].title);
}

std::optional<LauncherInterfaceStyle> interfaceStyleFromRawValue(QStringView rawValue) {
    return interfaceTable.find(rawValue);
}

AppTileVariant tileVariant(LauncherInterfaceStyle style) {
    return interfaceTable[style].variant;
}

} // namespace zelmo
