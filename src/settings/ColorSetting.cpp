#include "settings/ColorSetting.h"

#include "ui/WallStyle.h"

#include <QRgba64>

namespace zelmo {

std::optional<StyleColor> srgbComponents(const QColor& color) {
    const QColor converted = color.convertTo(QColor::Rgb);
    if (!converted.isValid())
        return std::nullopt;
    // The colour holds whole steps; its own real numbers are of single precision.
    const auto component = [](quint16 steps) { return steps / 65535.0; };
    const QRgba64 steps = converted.rgba64();
    return StyleColor{
        .red = component(steps.red()), .green = component(steps.green()), .blue = component(steps.blue())};
}

QColor ColorSetting::color() const {
    return toQColor(m_read());
}

void ColorSetting::setColor(const QColor& color) {
    const auto components = srgbComponents(color);
    if (!components)
        return;
    m_isWriting = true;
    m_write(*components);
    m_isWriting = false;
    Q_EMIT colorChanged();
}

} // namespace zelmo
