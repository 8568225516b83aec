#pragma once

#include "settings/ColorSetting.h"

#include <QPointer>

namespace zelmo {

// What a picker of one colour shows: hue, saturation and brightness from 0 to 1. It remembers the hue of a grey, which
// the colour itself does not have. Made by its view; main thread.
class ColorPickerModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zelmo::ColorSetting* setting READ setting WRITE setSetting NOTIFY settingChanged REQUIRED)
    Q_PROPERTY(qreal hue READ hue WRITE setHue NOTIFY changed)
    Q_PROPERTY(qreal saturation READ saturation NOTIFY changed)
    Q_PROPERTY(qreal brightness READ brightness NOTIFY changed)
    // As "#336699"; short forms and a missing sign are understood, and what is no colour is not taken.
    Q_PROPERTY(QString hex READ hex WRITE setHex NOTIFY changed)
    // The field's for screen readers, such as "Saturation 40%, brightness 90%".
    Q_PROPERTY(QString description READ description NOTIFY changed)

public:
    using QObject::QObject;

    ColorSetting* setting() const { return m_setting; }
    void setSetting(ColorSetting* setting);

    qreal hue() const { return m_hue; }
    qreal saturation() const { return m_saturation; }
    qreal brightness() const { return m_brightness; }
    void setHue(qreal hue);
    Q_INVOKABLE void setTone(qreal saturation, qreal brightness);
    QString hex() const;
    void setHex(const QString& text);
    QString description() const;

Q_SIGNALS:
    void settingChanged();
    void changed();

private:
    QColor color() const;
    void follow();
    void store();

    QPointer<ColorSetting> m_setting;
    qreal m_hue = 0;
    qreal m_saturation = 0;
    qreal m_brightness = 0;
};

} // namespace zelmo
