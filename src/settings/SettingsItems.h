#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace zelmo {

// Draws one of the program's icons in the middle of itself, with room around it for the shadow.
class AppIconCanvasItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    // Its place among the styles.
    Q_PROPERTY(int style MEMBER m_style NOTIFY changed)
    Q_PROPERTY(qreal margin MEMBER m_margin NOTIFY changed)

public:
    AppIconCanvasItem();
    void paint(QPainter* painter) override;

Q_SIGNALS:
    void changed();

private:
    int m_style = 0;
    qreal m_margin = 0;
};

// All colours of one hue: from grey to full across, from full to black down. Without a hue, all hues from the leading
// side on.
class ColorFieldItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal hue MEMBER m_hue NOTIFY changed)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed)

public:
    ColorFieldItem();
    void paint(QPainter* painter) override;

Q_SIGNALS:
    void changed();

private:
    qreal m_hue = -1;
    qreal m_radius = 0;
};

// Two arrowheads, one up and one down, that tell a list of choices.
class ChevronItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)

public:
    ChevronItem();
    void paint(QPainter* painter) override;

Q_SIGNALS:
    void changed();

private:
    QColor m_color = Qt::black;
};

} // namespace zelmo
