#include "settings/ColorPickerModel.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace zelmo {

namespace {

// Hues that are nearer to each other make the same colour of 8 bits.
constexpr qreal hueStep = 1e-5;

} // namespace

void ColorPickerModel::setSetting(ColorSetting* setting) {
    if (setting == m_setting)
        return;
    if (m_setting)
        m_setting->disconnect(this);
    m_setting = setting;
    if (m_setting) {
        connect(m_setting, &ColorSetting::colorChanged, this, &ColorPickerModel::follow);
        follow();
    }
    Q_EMIT settingChanged();
}

QColor ColorPickerModel::color() const {
    return QColor::fromHsvF(static_cast<float>(m_hue), static_cast<float>(m_saturation),
                            static_cast<float>(m_brightness))
        .toRgb();
}

// Its own change comes back with less precision, and of a grey or a black without a hue.
void ColorPickerModel::follow() {
    const QColor stored = m_setting->color();
    if (stored.rgb() == color().rgb()) {
        Q_EMIT changed();
        return;
    }
    const QColor tones = stored.toHsv();
    if (tones.hsvHueF() >= 0)
        m_hue = tones.hsvHueF();
    if (tones.valueF() > 0)
        m_saturation = tones.hsvSaturationF();
    m_brightness = tones.valueF();
    Q_EMIT changed();
}

void ColorPickerModel::setHue(qreal hue) {
    const qreal wanted = std::clamp(hue, 0.0, 1.0);
    // What a control was told comes back from it with less precision.
    if (std::abs(wanted - m_hue) < hueStep)
        return;
    m_hue = wanted;
    store();
}

void ColorPickerModel::setTone(qreal saturation, qreal brightness) {
    m_saturation = std::clamp(saturation, 0.0, 1.0);
    m_brightness = std::clamp(brightness, 0.0, 1.0);
    store();
}

// To whole steps of 8 bits, as the text beside it says.
void ColorPickerModel::store() {
    if (m_setting)
        m_setting->setColor(QColor(color().rgb()));
    Q_EMIT changed();
}

QString ColorPickerModel::hex() const {
    return m_setting ? m_setting->hex() : QString();
}

void ColorPickerModel::setHex(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^#?([0-9a-fA-F]{3}|[0-9a-fA-F]{6})$"));
    const auto match = form.match(text.trimmed());
    if (m_setting && match.hasMatch())
        m_setting->setColor(QColor(QString(u'#' + match.captured(1))));
    // Whoever wrote the text gets to see what it came to.
    Q_EMIT changed();
}

QString ColorPickerModel::description() const {
    return QStringLiteral("Saturation %1%, brightness %2%")
        .arg(qRound(100 * m_saturation))
        .arg(qRound(100 * m_brightness));
}

} // namespace zelmo
