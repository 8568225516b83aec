#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace zelmo {

// Fills a circle as large as itself with a gradient from its top-leading to its bottom-trailing side.
class CircleItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor startColor MEMBER m_startColor NOTIFY startColorChanged)
    Q_PROPERTY(QColor endColor MEMBER m_endColor NOTIFY endColorChanged)
    // One point wide, inside the circle.
    Q_PROPERTY(QColor outlineColor MEMBER m_outlineColor NOTIFY outlineColorChanged)

public:
    CircleItem();

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void startColorChanged();
    void endColorChanged();
    void outlineColorChanged();

private:
    QColor m_startColor = Qt::transparent;
    QColor m_endColor = Qt::transparent;
    QColor m_outlineColor = Qt::transparent;
};

} // namespace zelmo
