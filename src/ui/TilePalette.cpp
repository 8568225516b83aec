#include "ui/TilePalette.h"

#include "preferences/StyleColor.h"
#include "ui/StyleColors.h"

#include <QHash>

#include <array>
#include <limits>

namespace zelmo {

namespace {

struct Fill {
    StyleColor start;
    StyleColor end;
};

constexpr std::array<Fill, tileFillCount> palette{{
    {{0.18, 0.55, 0.58}, {0.10, 0.42, 0.49}},
    {{0.43, 0.39, 0.72}, {0.31, 0.29, 0.58}},
    {{0.31, 0.62, 0.47}, {0.22, 0.50, 0.38}},
    {{0.72, 0.34, 0.49}, {0.58, 0.24, 0.42}},
    {{0.78, 0.48, 0.28}, {0.66, 0.36, 0.22}},
    {{0.25, 0.57, 0.67}, {0.16, 0.45, 0.58}},
    {{0.54, 0.34, 0.65}, {0.43, 0.26, 0.55}},
}};

} // namespace

TileFill tileFill(int index) {
    if (index < 0 || index >= tileFillCount)
        qFatal("There is no tile fill %d.", index);
    const Fill& fill = palette[static_cast<std::size_t>(index)];
    return {toQColor(fill.start), toQColor(fill.end)};
}

int tileFillIndex(qint64 hash) {
    if (hash == std::numeric_limits<qint64>::min())
        qFatal("A hash value has no opposite.");
    return static_cast<int>((hash < 0 ? -hash : hash) % tileFillCount);
}

TileFill lumiaTileFill(const QString& name) {
    return tileFill(tileFillIndex(static_cast<qint64>(qHash(name, QHashSeed::globalSeed()))));
}

} // namespace zelmo
