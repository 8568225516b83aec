#pragma once

#include <QColor>
#include <QString>

namespace zelmo {

// The gradient of one tile, from its top-leading to its bottom-trailing corner.
struct TileFill {
    QColor start;
    QColor end;

    friend bool operator==(const TileFill&, const TileFill&) = default;
};

inline constexpr int tileFillCount = 7;

// From 0; any other index is an error of the program and ends it.
TileFill tileFill(int index);
// Which of the fills a name with this hash value has. The one value that has no opposite ends the program.
int tileFillIndex(qint64 hash);
// The same for a name as long as the program runs; another run may choose another one.
TileFill lumiaTileFill(const QString& name);

} // namespace zelmo
