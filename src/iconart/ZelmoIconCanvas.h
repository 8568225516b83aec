#pragma once

#include "appearance/AppIconStyle.h"

#include <QColor>
#include <QRectF>

#include <array>

class QPainter;

namespace zelmo {

// Draws one of the program's icons. Every length is a fraction of the side, so that it looks the same at every size. A
// value; any thread.
class ZelmoIconCanvas {
public:
    explicit ZelmoIconCanvas(AppIconStyle style) : m_style(style) {}

    // Into the middle of the rectangle, as large as fits. The shadow reaches beyond.
    void paint(QPainter& painter, const QRectF& rectangle) const;

    // The stops of the gradient behind the mark, from the top-leading to the bottom-trailing corner.
    static std::array<QColor, 3> background(AppIconStyle style);
    // The tiles of the aurora mark, 0 to 3. Any other index is an error of the program and ends it.
    static QColor auroraTile(int index);
    // The same of the stack mark's cards, 0 to 2: from the top-leading to the bottom-trailing corner.
    static std::array<QColor, 2> stackTile(int index);

private:
    AppIconStyle m_style;
};

} // namespace zelmo
