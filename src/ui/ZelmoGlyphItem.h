#pragma once

#include <QQuickPaintedItem>

namespace zelmo {

// The program's mark as it is while the wall is up, as large as the item.
class ZelmoGlyphItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

public:
    void paint(QPainter* painter) override;
};

} // namespace zelmo
