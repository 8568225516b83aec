#pragma once

#include <QColor>
#include <QFont>
#include <QQuickPaintedItem>

namespace zelmo {

// Draws a symbol as large as itself, in one colour. By itself it is as large as the symbol is in a text of its size.
class SymbolItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY appearanceChanged)
    // Of the text that it stands with, in points.
    Q_PROPERTY(qreal textSize READ textSize WRITE setTextSize NOTIFY textSizeChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY appearanceChanged)
    // One of Font's weights, from Font.Thin for the lightest to Font.Black.
    Q_PROPERTY(int weight MEMBER m_weight NOTIFY appearanceChanged)

public:
    SymbolItem();

    void paint(QPainter* painter) override;

    qreal textSize() const { return m_textSize; }
    void setTextSize(qreal size);

Q_SIGNALS:
    void textSizeChanged();
    void appearanceChanged();

private:
    QString m_name;
    qreal m_textSize = 0;
    QColor m_color = Qt::white;
    int m_weight = QFont::Normal;
};

} // namespace zelmo
