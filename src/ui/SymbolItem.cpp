#include "ui/SymbolItem.h"

#include "iconart/Symbol.h"

#include <algorithm>
#include <cmath>

namespace zelmo {

namespace {

// A font's weights are the hundreds from 100 to 900.
FontWeight fontWeight(int weight) {
    return static_cast<FontWeight>(std::clamp((weight + 50) / 100 - 1, 0, fontWeightCount - 1));
}

} // namespace

SymbolItem::SymbolItem() {
    connect(this, &SymbolItem::appearanceChanged, this, [this] { update(); });
}

// Whole points, so that the symbol stands on whole pixels when it is centred among even lengths.
void SymbolItem::setTextSize(qreal size) {
    if (m_textSize == size)
        return;
    m_textSize = size;
    const qreal side = std::round(size * symbolSideRatio);
    setImplicitSize(side, side);
    Q_EMIT textSizeChanged();
}

void SymbolItem::paint(QPainter* painter) {
    if (!m_name.isEmpty())
        paintSymbol(*painter, m_name, boundingRect(), m_color, fontWeight(m_weight));
}

} // namespace zelmo
