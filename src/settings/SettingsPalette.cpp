#include "settings/SettingsPalette.h"

#include "settings/ColorScheme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace zelmo {

namespace {

// What it takes for a shape to be told from its ground.
constexpr double leastContrast = 3;
// The same of letters.
constexpr double leastTextContrast = 4.5;

double luminance(const QColor& color) {
    const auto linear = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor& from, const QColor& towards, float share) {
    return QColor::fromRgbF(from.redF() + (towards.redF() - from.redF()) * share,
                            from.greenF() + (towards.greenF() - from.greenF()) * share,
                            from.blueF() + (towards.blueF() - from.blueF()) * share);
}

QColor black(float opacity) {
    return QColor::fromRgbF(0, 0, 0, opacity);
}

QColor white(float opacity) {
    return QColor::fromRgbF(1, 1, 1, opacity);
}

} // namespace

SettingsPalette::SettingsPalette(ColorScheme& scheme) : m_scheme(scheme) {
    m_scheme.setChangeHandler([this] { follow(); });
    m_scheme.start();
    qGuiApp->installEventFilter(this);
    follow();
}

SettingsPalette::~SettingsPalette() {
    m_scheme.setChangeHandler({});
}

bool SettingsPalette::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && object == qGuiApp)
        follow();
    return QObject::eventFilter(object, event);
}

void SettingsPalette::follow() {
    const SchemeWish wish = m_scheme.wish();
    m_isDark = wish == SchemeWish::unknown ? QGuiApplication::palette().color(QPalette::Window).lightness() < 128
                                           : wish == SchemeWish::dark;
    const QColor wanted = m_scheme.accent().value_or(pick(QColor(0x1d, 0x6a, 0xe5), QColor(0x2f, 0x74, 0xd8)));
    m_accent = wanted;
    for (int tenths = 1; contrast(m_accent, group()) < leastContrast && tenths < 10; ++tenths)
        m_accent = mixed(wanted, text(), static_cast<float>(tenths) / 10);
    Q_EMIT changed();
}

double SettingsPalette::contrast(const QColor& first, const QColor& second) {
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor SettingsPalette::window() const {
    return pick(QColor(0xf1, 0xf1, 0xf5), QColor(0x1d, 0x1d, 0x20));
}

QColor SettingsPalette::group() const {
    return pick(QColor(0xff, 0xff, 0xff), QColor(0x2a, 0x2a, 0x2e));
}

QColor SettingsPalette::popup() const {
    return pick(QColor(0xff, 0xff, 0xff), QColor(0x36, 0x36, 0x3b));
}

QColor SettingsPalette::outline() const {
    return pick(black(0.09F), white(0.08F));
}

QColor SettingsPalette::separator() const {
    return pick(black(0.1F), white(0.1F));
}

QColor SettingsPalette::text() const {
    return pick(QColor(0x1b, 0x1b, 0x1f), QColor(0xf3, 0xf3, 0xf6));
}

QColor SettingsPalette::secondaryText() const {
    return pick(QColor(0x63, 0x63, 0x6b), QColor(0xa9, 0xa9, 0xb2));
}

QColor SettingsPalette::control() const {
    return pick(black(0.055F), white(0.1F));
}

QColor SettingsPalette::pressedControl() const {
    return pick(black(0.13F), white(0.19F));
}

QColor SettingsPalette::controlOutline() const {
    return pick(black(0.14F), white(0.14F));
}

QColor SettingsPalette::track() const {
    return pick(QColor(0x8b, 0x8b, 0x93), QColor(0x77, 0x77, 0x80));
}

QColor SettingsPalette::knob() const {
    return Qt::white;
}

QColor SettingsPalette::accentText() const {
    const double onWhite = contrast(m_accent, Qt::white);
    return onWhite >= leastTextContrast || onWhite >= contrast(m_accent, Qt::black) ? Qt::white : Qt::black;
}

QColor SettingsPalette::orange() const {
    return pick(QColor(0xbf, 0x54, 0x00), QColor(0xff, 0x9f, 0x2e));
}

QColor SettingsPalette::green() const {
    return pick(QColor(0x24, 0x8a, 0x3d), QColor(0x3d, 0xd1, 0x61));
}

} // namespace zelmo
