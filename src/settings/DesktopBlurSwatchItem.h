#pragma once

#include <QImage>
#include <QQuickPaintedItem>

namespace zelmo {

// A desktop with a bar and two windows, so many pixels large, as it looks through the wall's material.
QImage blurredDesktop(QSize pixels);

// The background that blurs the desktop, in small: a desktop through the ultra-thin material, in a rectangle with
// continuous corners. The desktop is a drawn one: a picture of the user's own, taken as the settings open, would have
// the wall in it that is just going, and one taken later the settings themselves. Main thread.
class DesktopBlurSwatchItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed)

public:
    DesktopBlurSwatchItem();
    void paint(QPainter* painter) override;

Q_SIGNALS:
    void changed();

private:
    qreal m_radius = 0;
};

} // namespace zelmo
