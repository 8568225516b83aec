#pragma once

#include <QColor>
#include <QFont>
#include <QQuickPaintedItem>

namespace zelmo {

// Draws a symbol as large as itself, in one colour.
class SymbolItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY appearanceChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY appearanceChanged)
    // One of Font's weights, from Font.Thin for the lightest to Font.Black.
    Q_PROPERTY(int weight MEMBER m_weight NOTIFY appearanceChanged)

public:
    SymbolItem();

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void appearanceChanged();

private:
    QString m_name;
    QColor m_color = Qt::white;
    int m_weight = QFont::Normal;
};

} // namespace zelmo
