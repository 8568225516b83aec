#include "ui/CardLayout.h"

#include "ui/CardMetrics.h"

#include <array>

namespace zelmo {

namespace {

struct LayoutRow {
    AppTileVariant variant;
    CardLayout layout;
};

constexpr std::array layoutTable{
    LayoutRow{AppTileVariant::grid,
              {.columns = 6,
               .columnWidth = 154,
               .columnSpacing = 22,
               .rowSpacing = 24,
               .minimumHeight = 166,
               .iconSide = 104,
               .selectedRadius = 22,
               .plateRadius = 20,
               .badgeLeft = 10,
               .badgeTop = 8}},
    LayoutRow{AppTileVariant::list,
              {.columns = 1,
               .columnWidth = 760,
               .columnSpacing = 0,
               .rowSpacing = 10,
               .minimumHeight = 70,
               .iconSide = 46,
               .selectedRadius = 18,
               .plateRadius = 18,
               .badgeLeft = 8,
               .badgeTop = 6}},
    LayoutRow{AppTileVariant::minimal,
              {.columns = 8,
               .columnWidth = 96,
               .columnSpacing = 18,
               .rowSpacing = 20,
               .minimumHeight = 98,
               .iconSide = 64,
               .selectedRadius = 22,
               .plateRadius = 20,
               .badgeLeft = 10,
               .badgeTop = 8}},
    LayoutRow{AppTileVariant::tile,
              {.columns = 7,
               .columnWidth = 154,
               .columnSpacing = 0,
               .rowSpacing = 0,
               .minimumHeight = 154,
               .iconSide = 58,
               .selectedRadius = 22,
               .plateRadius = 0,
               .badgeLeft = 10,
               .badgeTop = 8}},
};

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < layoutTable.size(); ++i) {
        if (static_cast<std::size_t>(layoutTable[i].variant) != i)
            return false;
    }
    return layoutTable.size() == interfaceStyleCount;
}
static_assert(isInOrder());

} // namespace

const CardLayout& cardLayout(AppTileVariant variant) {
    return layoutTable[static_cast<std::size_t>(variant)].layout;
}

CardPlate cardPlate(AppTileVariant variant, TileBackgrounds backgrounds) {
    switch (variant) {
    case AppTileVariant::list:
        return {.fill = CardMetrics::rowPlate()};
    case AppTileVariant::tile:
        return {.outline = CardMetrics::seam(), .outlineWidth = CardMetrics::seamWidth()};
    case AppTileVariant::grid:
    case AppTileVariant::minimal:
        break;
    }
    if (backgrounds == TileBackgrounds::none)
        return {};
    return {.fill = CardMetrics::darkPlate(), .outline = CardMetrics::darkPlateOutline()};
}

} // namespace zelmo
