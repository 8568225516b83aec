#pragma once

#include "preferences/Preferences.h"
#include "preferences/StyleColor.h"

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace zelmo {

// The red, green and blue of a colour in sRGB, from 0 to 1; always opaque. Nothing for what is no colour.
std::optional<StyleColor> srgbComponents(const QColor& color);

// One of the user's colours, bound to the three preferences of its components. Owned by the section that it stands in;
// main thread.
class ColorSetting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its preferences")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(QString hex READ hex NOTIFY colorChanged)

public:
    template <PreferenceKey red, PreferenceKey green, PreferenceKey blue>
    static ColorSetting* make(Preferences& preferences, const QString& title, QObject* parent) {
        auto* setting = new ColorSetting(parent);
        setting->m_title = title;
        setting->m_read = [&preferences] {
            return StyleColor{.red = preferences.value<red>(),
                              .green = preferences.value<green>(),
                              .blue = preferences.value<blue>()};
        };
        setting->m_write = [&preferences](const StyleColor& color) {
            preferences.setValue<red>(color.red);
            preferences.setValue<green>(color.green);
            preferences.setValue<blue>(color.blue);
        };
        connect(&preferences, &Preferences::changed, setting, [setting](PreferenceKey changed) {
            if (!setting->m_isWriting && (changed == red || changed == green || changed == blue))
                Q_EMIT setting->colorChanged();
        });
        return setting;
    }

    const QString& title() const { return m_title; }
    QColor color() const;
    // Stores nothing where the colour can't be expressed in sRGB.
    void setColor(const QColor& color);
    // As "#336699".
    QString hex() const { return color().name(); }

Q_SIGNALS:
    void colorChanged();

private:
    using QObject::QObject;

    QString m_title;
    std::function<StyleColor()> m_read;
    std::function<void(const StyleColor&)> m_write;
    bool m_isWriting = false; // the colours in between are nobody's
};

} // namespace zelmo
