#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

// Lengths, text sizes and colours of the alerts, for the views to bind to. Lengths and sizes are points; opacities
// go from 0 to 1.
class AlertMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(qreal width READ width CONSTANT)
    Q_PROPERTY(qreal padding READ padding CONSTANT)
    Q_PROPERTY(qreal columnSpacing READ columnSpacing CONSTANT)
    Q_PROPERTY(qreal textSpacing READ textSpacing CONSTANT)
    Q_PROPERTY(qreal buttonsTop READ buttonsTop CONSTANT)
    Q_PROPERTY(qreal badgeSide READ badgeSide CONSTANT)
    Q_PROPERTY(qreal badgeFontSize READ badgeFontSize CONSTANT)
    Q_PROPERTY(qreal messageFontSize READ messageFontSize CONSTANT)
    Q_PROPERTY(qreal informativeFontSize READ informativeFontSize CONSTANT)
    Q_PROPERTY(qreal informativeOpacity READ informativeOpacity CONSTANT)
    Q_PROPERTY(int messageLines READ messageLines CONSTANT)
    Q_PROPERTY(qreal buttonHeight READ buttonHeight CONSTANT)
    Q_PROPERTY(qreal buttonMinimumWidth READ buttonMinimumWidth CONSTANT)
    Q_PROPERTY(qreal buttonPadding READ buttonPadding CONSTANT)
    Q_PROPERTY(qreal buttonSpacing READ buttonSpacing CONSTANT)
    Q_PROPERTY(qreal buttonRadius READ buttonRadius CONSTANT)
    Q_PROPERTY(qreal buttonFontSize READ buttonFontSize CONSTANT)
    Q_PROPERTY(qreal pressedOpacity READ pressedOpacity CONSTANT)
    Q_PROPERTY(qreal focusRingWidth READ focusRingWidth CONSTANT)
    Q_PROPERTY(qreal focusRingGap READ focusRingGap CONSTANT)
    Q_PROPERTY(QColor background READ background CONSTANT)
    Q_PROPERTY(QColor outline READ outline CONSTANT)
    Q_PROPERTY(QColor text READ text CONSTANT)
    Q_PROPERTY(QColor warningBadge READ warningBadge CONSTANT)
    Q_PROPERTY(QColor informationalBadge READ informationalBadge CONSTANT)
    Q_PROPERTY(QColor badgeText READ badgeText CONSTANT)
    Q_PROPERTY(QColor defaultButton READ defaultButton CONSTANT)
    Q_PROPERTY(QColor otherButton READ otherButton CONSTANT)
    Q_PROPERTY(QColor focusRing READ focusRing CONSTANT)

public:
    using QObject::QObject;

    static constexpr qreal width() { return 460; }
    static constexpr qreal padding() { return 24; }
    static constexpr qreal columnSpacing() { return 18; }
    static constexpr qreal textSpacing() { return 8; }
    static constexpr qreal buttonsTop() { return 24; }

    static constexpr qreal badgeSide() { return 48; }
    static constexpr qreal badgeFontSize() { return 28; }
    static constexpr qreal messageFontSize() { return 17; }
    static constexpr qreal informativeFontSize() { return 13; }
    static constexpr qreal informativeOpacity() { return 0.76; }
    static constexpr int messageLines() { return 3; } // a longer one ends in an ellipsis

    static constexpr qreal buttonHeight() { return 36; }
    static constexpr qreal buttonMinimumWidth() { return 96; }
    static constexpr qreal buttonPadding() { return 18; }
    static constexpr qreal buttonSpacing() { return 12; }
    static constexpr qreal buttonRadius() { return 10; }
    static constexpr qreal buttonFontSize() { return 14; }
    static constexpr qreal pressedOpacity() { return 0.7; }
    static constexpr qreal focusRingWidth() { return 2; }
    static constexpr qreal focusRingGap() { return 3; }

    static QColor background() { return QColor::fromRgbF(0.12F, 0.13F, 0.18F); }
    static QColor outline() { return QColor::fromRgbF(1, 1, 1, 0.16F); }
    static QColor text() { return QColor::fromRgbF(1, 1, 1); }
    static QColor warningBadge() { return QColor::fromRgbF(1, 0.74F, 0.3F); }
    static QColor informationalBadge() { return QColor::fromRgbF(0.48F, 0.72F, 1); }
    static QColor badgeText() { return QColor::fromRgbF(0.12F, 0.13F, 0.18F); }
    static QColor defaultButton() { return QColor::fromRgbF(0.2F, 0.42F, 0.88F); }
    static QColor otherButton() { return QColor::fromRgbF(1, 1, 1, 0.14F); }
    static QColor focusRing() { return QColor::fromRgbF(0.72F, 0.84F, 1); }
};

} // namespace zelmo
