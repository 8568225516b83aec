#include "ui/StyleColors.h"

#include <algorithm>

namespace zelmo {

QColor toQColor(const StyleColor& color) {
    const auto component = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue),
                            component(color.opacity));
}

QColor withOpacity(QColor color, double part) {
    color.setAlphaF(color.alphaF() * static_cast<float>(part));
    return color;
}

QColor through(const QColor& veil, const QColor& below) {
    const float part = veil.alphaF();
    const auto mix = [part](float over, float under) { return over * part + under * (1 - part); };
    return QColor::fromRgbF(mix(veil.redF(), below.redF()), mix(veil.greenF(), below.greenF()),
                            mix(veil.blueF(), below.blueF()));
}

QColor white(double opacity) {
    return withOpacity(Qt::white, opacity);
}

QColor black(double opacity) {
    return withOpacity(Qt::black, opacity);
}

} // namespace zelmo
