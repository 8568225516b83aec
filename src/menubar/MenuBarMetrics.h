#pragma once

#include <QColor>
#include <QObject>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

// Lengths, text sizes, colours and durations of the menu-bar item and its panel, for the views to bind to. Lengths and
// sizes are points; opacities go from 0 to 1.
class MenuBarMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(qreal panelWidth READ panelWidth CONSTANT)
    Q_PROPERTY(qreal panelVerticalPadding READ panelVerticalPadding CONSTANT)
    Q_PROPERTY(qreal separatorHeight READ separatorHeight CONSTANT)
    Q_PROPERTY(qreal separatorPadding READ separatorPadding CONSTANT)
    Q_PROPERTY(QColor separatorColor READ separatorColor CONSTANT)
    Q_PROPERTY(qreal rowSpacing READ rowSpacing CONSTANT)
    Q_PROPERTY(qreal titleFontSize READ titleFontSize CONSTANT)
    Q_PROPERTY(QColor titleColor READ titleColor CONSTANT)
    Q_PROPERTY(QColor destructiveTitleColor READ destructiveTitleColor CONSTANT)
    Q_PROPERTY(qreal buttonHorizontalPadding READ buttonHorizontalPadding CONSTANT)
    Q_PROPERTY(qreal buttonVerticalPadding READ buttonVerticalPadding CONSTANT)
    Q_PROPERTY(QColor buttonColor READ buttonColor CONSTANT)
    Q_PROPERTY(QColor emphasizedButtonColor READ emphasizedButtonColor CONSTANT)
    Q_PROPERTY(QColor buttonOutlineColor READ buttonOutlineColor CONSTANT)
    Q_PROPERTY(qreal buttonOutlineWidth READ buttonOutlineWidth CONSTANT)
    Q_PROPERTY(qreal pressedScale READ pressedScale CONSTANT)
    Q_PROPERTY(qreal pressedOpacity READ pressedOpacity CONSTANT)
    Q_PROPERTY(int pressDuration READ pressDuration CONSTANT)
    Q_PROPERTY(QVariantList pressCurve READ pressCurve CONSTANT)
    Q_PROPERTY(qreal toggleMaximumWidth READ toggleMaximumWidth CONSTANT)
    Q_PROPERTY(QColor toggleTitleColor READ toggleTitleColor CONSTANT)
    Q_PROPERTY(QColor toggleColor READ toggleColor CONSTANT)
    Q_PROPERTY(qreal toggleSpacing READ toggleSpacing CONSTANT)
    Q_PROPERTY(qreal toggleMinimumFontSize READ toggleMinimumFontSize CONSTANT)
    Q_PROPERTY(qreal boxSide READ boxSide CONSTANT)
    Q_PROPERTY(qreal boxRadius READ boxRadius CONSTANT)
    Q_PROPERTY(qreal boxOutlineWidth READ boxOutlineWidth CONSTANT)
    Q_PROPERTY(QColor boxColor READ boxColor CONSTANT)
    Q_PROPERTY(QColor checkmarkColor READ checkmarkColor CONSTANT)
    Q_PROPERTY(qreal checkmarkSide READ checkmarkSide CONSTANT)
    Q_PROPERTY(QColor focusRingColor READ focusRingColor CONSTANT)
    Q_PROPERTY(qreal focusRingWidth READ focusRingWidth CONSTANT)
    Q_PROPERTY(qreal focusRingGap READ focusRingGap CONSTANT)

public:
    using QObject::QObject;

    static constexpr qreal labelSide() { return 18; } // of the item's glyph

    static constexpr int defaultWidth() { return 294; } // of the panel before its content is known
    static constexpr int defaultHeight() { return 260; }
    static constexpr qreal panelWidth() { return 294; }
    static constexpr qreal panelVerticalPadding() { return 12; }
    static constexpr qreal panelRadius() { return 24; }
    static QColor panelFill() { return QColor::fromRgbF(0, 0, 0, 0.58F); }
    static QColor panelOutline() { return white(0.12F); }
    static constexpr qreal panelOutlineWidth() { return 1; } // half of it lies outside and is cut off
    static constexpr qreal shadowOpacity() { return 0.24; }
    static constexpr qreal shadowRadius() { return 18; }
    static constexpr qreal shadowOffset() { return 12; }
    static constexpr int itemGap() { return 6; } // between the panel and what it opens beside

    static constexpr qreal separatorHeight() { return 1; }
    static constexpr qreal separatorPadding() { return 12; } // above and below
    static QColor separatorColor() { return white(0.07F); }
    static constexpr qreal rowSpacing() { return 14; }

    static constexpr qreal titleFontSize() { return 15; }
    static QColor titleColor() { return white(0.96F); }
    static QColor destructiveTitleColor() { return white(0.92F); }
    static constexpr qreal buttonHorizontalPadding() { return 24; }
    static constexpr qreal buttonVerticalPadding() { return 10; }
    static QColor buttonColor() { return white(0.11F); }
    static QColor emphasizedButtonColor() { return white(0.14F); }
    static QColor buttonOutlineColor() { return white(0.1F); }
    static constexpr qreal buttonOutlineWidth() { return 1; } // along the edge, half of it outside

    static constexpr qreal pressedScale() { return 0.985; }
    static constexpr qreal pressedOpacity() { return 0.88; }
    static constexpr int pressDuration() { return 140; } // ms
    // Ease-out, as the control points and the end of a curve from the origin.
    static QVariantList pressCurve() { return {0.0, 0.0, 0.58, 1.0, 1.0, 1.0}; }

    static constexpr qreal toggleMaximumWidth() { return 188; }
    static QColor toggleTitleColor() { return white(0.7F); }
    static QColor toggleColor() { return white(0.72F); } // of what is not its title
    static constexpr qreal toggleSpacing() { return 8; }
    static constexpr qreal toggleMinimumFontSize() { return 11; } // in a font too wide for the title
    static constexpr qreal boxSide() { return 14; }
    static constexpr qreal boxRadius() { return 4; }
    static constexpr qreal boxOutlineWidth() { return 1; }
    static QColor boxColor() { return white(0.14F); }
    static QColor checkmarkColor() { return QColor::fromRgbF(0.06F, 0.06F, 0.08F); }
    static constexpr qreal checkmarkSide() { return 10; }

    static QColor focusRingColor() { return QColor::fromRgbF(0.72F, 0.84F, 1); }
    static constexpr qreal focusRingWidth() { return 2; }
    static constexpr qreal focusRingGap() { return 3; }

private:
    static QColor white(float opacity) { return QColor::fromRgbF(1, 1, 1, opacity); }
};

} // namespace zelmo
