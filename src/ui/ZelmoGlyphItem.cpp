#include "ui/ZelmoGlyphItem.h"

#include "iconart/ZelmoGlyph.h"

namespace zelmo {

void ZelmoGlyphItem::paint(QPainter* painter) {
    ZelmoGlyph(GlyphState::active).paint(*painter, boundingRect());
}

} // namespace zelmo
