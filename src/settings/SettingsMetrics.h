#pragma once

#include <QColor>
#include <QFontInfo>
#include <QGuiApplication>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

// Lengths, text sizes, colours and durations of the settings that are the same in light and dark, for the views to bind
// to. Lengths and sizes are points; opacities go from 0 to 1; durations are milliseconds.
class SettingsMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(qreal formMaximumWidth READ formMaximumWidth CONSTANT)
    Q_PROPERTY(qreal formPadding READ formPadding CONSTANT)
    Q_PROPERTY(qreal sectionSpacing READ sectionSpacing CONSTANT)
    Q_PROPERTY(qreal headingSpacing READ headingSpacing CONSTANT)
    Q_PROPERTY(qreal groupRadius READ groupRadius CONSTANT)
    Q_PROPERTY(qreal rowHeight READ rowHeight CONSTANT)
    Q_PROPERTY(qreal rowPadding READ rowPadding CONSTANT)
    Q_PROPERTY(qreal rowVerticalPadding READ rowVerticalPadding CONSTANT)
    Q_PROPERTY(qreal rowSpacing READ rowSpacing CONSTANT)
    Q_PROPERTY(qreal lineSpacing READ lineSpacing CONSTANT)
    Q_PROPERTY(qreal bodySize READ bodySize CONSTANT)
    Q_PROPERTY(qreal captionSize READ captionSize CONSTANT)
    Q_PROPERTY(qreal disabledOpacity READ disabledOpacity CONSTANT)
    Q_PROPERTY(qreal focusRingWidth READ focusRingWidth CONSTANT)
    Q_PROPERTY(qreal focusRingGap READ focusRingGap CONSTANT)
    Q_PROPERTY(qreal controlHeight READ controlHeight CONSTANT)
    Q_PROPERTY(qreal controlRadius READ controlRadius CONSTANT)
    Q_PROPERTY(qreal controlPadding READ controlPadding CONSTANT)
    Q_PROPERTY(qreal pickerWidth READ pickerWidth CONSTANT)
    Q_PROPERTY(qreal chevronWidth READ chevronWidth CONSTANT)
    Q_PROPERTY(qreal chevronHeight READ chevronHeight CONSTANT)
    Q_PROPERTY(qreal popupRadius READ popupRadius CONSTANT)
    Q_PROPERTY(qreal popupPadding READ popupPadding CONSTANT)
    Q_PROPERTY(qreal popupMargin READ popupMargin CONSTANT)
    Q_PROPERTY(qreal popupGap READ popupGap CONSTANT)
    Q_PROPERTY(qreal popupShadowOpacity READ popupShadowOpacity CONSTANT)
    Q_PROPERTY(qreal popupShadowRadius READ popupShadowRadius CONSTANT)
    Q_PROPERTY(qreal popupShadowOffset READ popupShadowOffset CONSTANT)
    Q_PROPERTY(qreal listItemHeight READ listItemHeight CONSTANT)
    Q_PROPERTY(int listMaximumRows READ listMaximumRows CONSTANT)
    Q_PROPERTY(qreal tickSide READ tickSide CONSTANT)
    Q_PROPERTY(qreal sliderWidth READ sliderWidth CONSTANT)
    Q_PROPERTY(qreal sliderTrackHeight READ sliderTrackHeight CONSTANT)
    Q_PROPERTY(qreal sliderKnobSide READ sliderKnobSide CONSTANT)
    Q_PROPERTY(qreal sliderValueWidth READ sliderValueWidth CONSTANT)
    Q_PROPERTY(qreal switchWidth READ switchWidth CONSTANT)
    Q_PROPERTY(qreal switchHeight READ switchHeight CONSTANT)
    Q_PROPERTY(qreal switchInset READ switchInset CONSTANT)
    Q_PROPERTY(int switchDuration READ switchDuration CONSTANT)
    Q_PROPERTY(qreal knobShadowOpacity READ knobShadowOpacity CONSTANT)
    Q_PROPERTY(qreal knobShadowRadius READ knobShadowRadius CONSTANT)
    Q_PROPERTY(qreal knobShadowOffset READ knobShadowOffset CONSTANT)
    Q_PROPERTY(qreal wellWidth READ wellWidth CONSTANT)
    Q_PROPERTY(qreal wellHeight READ wellHeight CONSTANT)
    Q_PROPERTY(qreal wellInset READ wellInset CONSTANT)
    Q_PROPERTY(qreal colorFieldWidth READ colorFieldWidth CONSTANT)
    Q_PROPERTY(qreal colorFieldHeight READ colorFieldHeight CONSTANT)
    Q_PROPERTY(qreal colorStep READ colorStep CONSTANT)
    Q_PROPERTY(qreal hueStripHeight READ hueStripHeight CONSTANT)
    Q_PROPERTY(qreal colorMarkSide READ colorMarkSide CONSTANT)
    Q_PROPERTY(qreal colorMarkWidth READ colorMarkWidth CONSTANT)
    Q_PROPERTY(qreal hexFieldWidth READ hexFieldWidth CONSTANT)
    Q_PROPERTY(qreal iconSide READ iconSide CONSTANT)
    Q_PROPERTY(qreal iconMargin READ iconMargin CONSTANT)
    Q_PROPERTY(qreal iconOptionWidth READ iconOptionWidth CONSTANT)
    Q_PROPERTY(qreal iconOptionPadding READ iconOptionPadding CONSTANT)
    Q_PROPERTY(qreal iconOptionRadius READ iconOptionRadius CONSTANT)
    Q_PROPERTY(qreal iconMarkWidth READ iconMarkWidth CONSTANT)
    Q_PROPERTY(qreal iconMarkOpacity READ iconMarkOpacity CONSTANT)
    Q_PROPERTY(qreal previewWidth READ previewWidth CONSTANT)
    Q_PROPERTY(qreal previewHeight READ previewHeight CONSTANT)
    Q_PROPERTY(qreal previewRadius READ previewRadius CONSTANT)
    Q_PROPERTY(qreal badgeSide READ badgeSide CONSTANT)
    Q_PROPERTY(qreal keyboardSymbolSize READ keyboardSymbolSize CONSTANT)
    Q_PROPERTY(qreal extrasSymbolSize READ extrasSymbolSize CONSTANT)
    Q_PROPERTY(qreal checkSymbolSize READ checkSymbolSize CONSTANT)
    Q_PROPERTY(qreal symbolSideRatio READ symbolSideRatio CONSTANT)
    Q_PROPERTY(QList<QColor> keyboardColors READ keyboardColors CONSTANT)
    Q_PROPERTY(QList<QColor> extrasColors READ extrasColors CONSTANT)
    Q_PROPERTY(int revealDuration READ revealDuration CONSTANT)
    Q_PROPERTY(QVariantList revealCurve READ revealCurve CONSTANT)
    Q_PROPERTY(qreal segmentWidth READ segmentWidth CONSTANT)
    Q_PROPERTY(qreal segmentInset READ segmentInset CONSTANT)
    Q_PROPERTY(qreal scrollBarWidth READ scrollBarWidth CONSTANT)
    Q_PROPERTY(qreal scrollBarMargin READ scrollBarMargin CONSTANT)
    Q_PROPERTY(qreal scrollBarOpacity READ scrollBarOpacity CONSTANT)
    Q_PROPERTY(qreal scrollBarRestOpacity READ scrollBarRestOpacity CONSTANT)

public:
    explicit SettingsMetrics(QObject* parent = nullptr) : QObject(parent), m_textScale(desktopTextScale()) {}

    static constexpr int windowWidth() { return 560; }
    static constexpr int windowHeight() { return 680; }
    static constexpr int windowMinimumWidth() { return 440; }
    static constexpr int windowMinimumHeight() { return 320; }

    // How much larger than usual the user wants texts. What desktops have by default, some more and some less, counts
    // as usual: there, all texts have exactly the sizes below.
    static double desktopTextScale() {
        constexpr double usualSize = 13;
        constexpr double leastEnlargement = 1.2;
        const double scale = QFontInfo(QGuiApplication::font()).pixelSize() / usualSize;
        return scale < leastEnlargement ? 1 : scale;
    }

    static constexpr qreal formMaximumWidth() { return 680; }
    static constexpr qreal formPadding() { return 20; }
    static constexpr qreal sectionSpacing() { return 22; }
    static constexpr qreal headingSpacing() { return 8; }
    static constexpr qreal groupRadius() { return 12; }
    static constexpr qreal rowHeight() { return 44; }
    static constexpr qreal rowPadding() { return 14; }
    static constexpr qreal rowVerticalPadding() { return 8; }
    static constexpr qreal rowSpacing() { return 12; }
    static constexpr qreal lineSpacing() { return 3; }

    qreal bodySize() const { return 13 * m_textScale; }
    qreal captionSize() const { return 11 * m_textScale; }
    static constexpr qreal disabledOpacity() { return 0.45; }

    static constexpr qreal focusRingWidth() { return 2; }
    static constexpr qreal focusRingGap() { return 2; }
    qreal controlHeight() const { return 28 * m_textScale; }
    static constexpr qreal controlRadius() { return 7; }
    static constexpr qreal controlPadding() { return 10; }

    qreal pickerWidth() const { return 190 * m_textScale; }
    static constexpr qreal chevronWidth() { return 8; }
    static constexpr qreal chevronHeight() { return 12; }
    static constexpr qreal popupRadius() { return 9; }
    static constexpr qreal popupPadding() { return 5; }
    static constexpr qreal popupMargin() { return 8; }
    static constexpr qreal popupGap() { return 4; }
    static constexpr qreal popupShadowOpacity() { return 0.28; }
    static constexpr qreal popupShadowRadius() { return 16; }
    static constexpr qreal popupShadowOffset() { return 6; }
    qreal listItemHeight() const { return 26 * m_textScale; }
    static constexpr int listMaximumRows() { return 14; }
    static constexpr qreal tickSide() { return 14; }

    static constexpr qreal sliderWidth() { return 180; }
    static constexpr qreal sliderTrackHeight() { return 4; }
    static constexpr qreal sliderKnobSide() { return 20; }
    qreal sliderValueWidth() const { return 24 * m_textScale; }

    static constexpr qreal switchWidth() { return 40; }
    static constexpr qreal switchHeight() { return 24; }
    static constexpr qreal switchInset() { return 2; }
    static constexpr int switchDuration() { return 120; }
    static constexpr qreal knobShadowOpacity() { return 0.3; }
    static constexpr qreal knobShadowRadius() { return 2; }
    static constexpr qreal knobShadowOffset() { return 1; }

    static constexpr qreal wellWidth() { return 46; }
    static constexpr qreal wellHeight() { return 26; }
    static constexpr qreal wellInset() { return 3; }
    static constexpr qreal colorFieldWidth() { return 220; }
    static constexpr qreal colorFieldHeight() { return 140; }
    static constexpr qreal colorStep() { return 0.02; } // of a key
    static constexpr qreal hueStripHeight() { return 14; }
    static constexpr qreal colorMarkSide() { return 16; }
    static constexpr qreal colorMarkWidth() { return 2; }
    qreal hexFieldWidth() const { return 96 * m_textScale; }

    static constexpr qreal iconSide() { return 54; }
    static constexpr qreal iconMargin() { return 6; } // for the shadow
    static constexpr qreal iconOptionWidth() { return 88; }
    static constexpr qreal iconOptionPadding() { return 9; }
    static constexpr qreal iconOptionRadius() { return 12; }
    static constexpr qreal iconMarkWidth() { return 2; }
    static constexpr qreal iconMarkOpacity() { return 0.12; }
    static constexpr qreal previewWidth() { return 132; }
    static constexpr qreal previewHeight() { return 74; }
    static constexpr qreal previewRadius() { return 12; }

    static constexpr qreal badgeSide() { return 28; }
    static constexpr qreal keyboardSymbolSize() { return 12; }
    static constexpr qreal extrasSymbolSize() { return 13; }
    static constexpr qreal checkSymbolSize() { return 15; }
    // A symbol's square to its size among letters.
    static constexpr qreal symbolSideRatio() { return 1.25; }
    static QList<QColor> keyboardColors() {
        return {QColor::fromRgbF(0.38F, 0.61F, 1), QColor::fromRgbF(0.38F, 0.88F, 0.76F)};
    }
    static QList<QColor> extrasColors() {
        return {QColor::fromRgbF(1, 0.74F, 0.34F), QColor::fromRgbF(0.98F, 0.44F, 0.48F)};
    }
    static constexpr int revealDuration() { return 180; }
    // Slow at both ends, as the control points of a Bézier curve from (0, 0) to (1, 1).
    static QVariantList revealCurve() { return {0.42, 0.0, 0.58, 1.0, 1.0, 1.0}; }
    qreal segmentWidth() const { return 76 * m_textScale; }
    static constexpr qreal segmentInset() { return 2; }

    static constexpr qreal scrollBarWidth() { return 7; }
    static constexpr qreal scrollBarMargin() { return 3; }
    static constexpr qreal scrollBarOpacity() { return 0.5; }
    static constexpr qreal scrollBarRestOpacity() { return 0.22; }

private:
    double m_textScale;
};

} // namespace zelmo
