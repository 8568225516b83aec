#pragma once

#include <QColor>
#include <QFont>
#include <QList>
#include <QQuickItem>

namespace zelmo::test {

inline QColor rgb(double red, double green, double blue, double opacity = 1) {
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue),
                            static_cast<float>(opacity));
}

inline QColor whiteAt(double opacity) {
    return rgb(1, 1, 1, opacity);
}

inline QColor blackAt(double opacity) {
    return rgb(0, 0, 0, opacity);
}

// Colours as text in thousandths, so that a failed comparison tells them.
inline QString said(const QColor& color) {
    return QStringLiteral("%1 %2 %3 %4")
        .arg(static_cast<double>(color.redF()), 0, 'f', 3)
        .arg(static_cast<double>(color.greenF()), 0, 'f', 3)
        .arg(static_cast<double>(color.blueF()), 0, 'f', 3)
        .arg(static_cast<double>(color.alphaF()), 0, 'f', 3);
}

inline QString said(const QList<QColor>& colors) {
    QStringList list;
    for (const QColor& color : colors)
        list.append(said(color));
    return list.join(QStringLiteral(", "));
}

// With everything around the item that makes it fainter.
inline double opacityOf(const QQuickItem* item) {
    double opacity = 1;
    for (; item; item = item->parentItem())
        opacity *= item->opacity();
    return opacity;
}

// What a text or a symbol is drawn in.
inline QString ink(const QQuickItem* item) {
    QColor color = item->property("color").value<QColor>();
    color.setAlphaF(color.alphaF() * static_cast<float>(opacityOf(item)));
    return said(color);
}

inline QString fill(const QQuickItem* plate) {
    return said(plate->property("colors").value<QList<QColor>>());
}

inline QString outline(const QQuickItem* plate) {
    return said(plate->property("strokeColors").value<QList<QColor>>());
}

inline double number(const QQuickItem* item, const char* property) {
    const QVariant value = item->property(property);
    return value.isValid() ? value.toDouble() : qQNaN();
}

inline QString shadow(const QQuickItem* item) {
    return QStringLiteral("%1 %2 %3")
        .arg(number(item, "shadowOpacity"))
        .arg(number(item, "shadowRadius"))
        .arg(number(item, "shadowOffset"));
}

inline QFont fontOf(const QQuickItem* text) {
    return text->property("font").value<QFont>();
}

// Size and weight of a text's letters or of a symbol, as of letters of that size.
inline QString letters(const QQuickItem* item) {
    if (item->inherits("zelmo::SymbolItem"))
        return QStringLiteral("%1 %2").arg(number(item, "textSize")).arg(number(item, "weight"));
    return QStringLiteral("%1 %2").arg(fontOf(item).pixelSize()).arg(fontOf(item).weight());
}

// Fonts keep it in 64ths.
inline bool hasLetterSpacing(const QQuickItem* text, double spacing) {
    return std::abs(fontOf(text).letterSpacing() - spacing) < 1.0 / 64;
}

// The plates that an item consists of besides what it has for the focus, below and above its own.
// The one of a selection, while there is one.
inline QQuickItem* badgeOf(const QQuickItem* card) {
    for (QQuickItem* child : card->childItems()) {
        auto* badge = child->property("item").value<QQuickItem*>();
        if (badge && badge->property("isShown").isValid())
            return badge;
    }
    return nullptr;
}

inline QList<QQuickItem*> platesIn(const QQuickItem* item) {
    QList<QQuickItem*> list;
    for (QQuickItem* child : item->childItems()) {
        if (child->inherits("zelmo::PlateItem") && child->isVisible())
            list.append(child);
    }
    return list;
}

// As near as whole points allow.
inline bool isCentred(const QRectF& inner, const QRectF& outer) {
    const QPointF apart = inner.center() - outer.center();
    return std::abs(apart.x()) <= 0.5 && std::abs(apart.y()) <= 0.5;
}

inline bool isNear(QColor seen, QColor wanted, int tolerance = 1) {
    return std::abs(seen.red() - wanted.red()) <= tolerance && std::abs(seen.green() - wanted.green()) <= tolerance &&
           std::abs(seen.blue() - wanted.blue()) <= tolerance;
}

// A colour with a translucent one over it.
inline QColor over(QColor below, QColor above) {
    const auto mixed = [&](float from, float to) { return from + above.alphaF() * (to - from); };
    return QColor::fromRgbF(mixed(below.redF(), above.redF()), mixed(below.greenF(), above.greenF()),
                            mixed(below.blueF(), above.blueF()));
}

} // namespace zelmo::test
