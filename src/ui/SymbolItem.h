#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace zelmo {

// Draws a symbol as large as itself, in one colour.
class SymbolItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY appearanceChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY appearanceChanged)

public:
    SymbolItem();

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void appearanceChanged();

private:
    QString m_name;
    QColor m_color = Qt::white;
};

} // namespace zelmo
