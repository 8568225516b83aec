#include "ui/SymbolItem.h"

#include "iconart/Symbol.h"

namespace zelmo {

SymbolItem::SymbolItem() {
    connect(this, &SymbolItem::appearanceChanged, this, [this] { update(); });
}

void SymbolItem::paint(QPainter* painter) {
    if (!m_name.isEmpty())
        paintSymbol(*painter, m_name, boundingRect(), m_color);
}

} // namespace zelmo
