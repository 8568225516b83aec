#pragma once

#include "settings/ColorSetting.h"
#include "settings/FontSizeSetting.h"
#include "settings/PickerSetting.h"

#include <QQmlListProperty>

namespace zelmo {

// The section of letters, background, colours and sizes. Owned by the form; main thread.
class AppearanceSettings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the form")
    Q_PROPERTY(zelmo::PickerSetting* font READ font CONSTANT)
    Q_PROPERTY(zelmo::PickerSetting* background READ background CONSTANT)
    Q_PROPERTY(zelmo::ColorSetting* backgroundColor READ backgroundColor CONSTANT)
    // Its colour counts for one of the backgrounds only.
    Q_PROPERTY(bool backgroundColorCounts READ backgroundColorCounts NOTIFY backgroundChanged)
    Q_PROPERTY(zelmo::ColorSetting* textColor READ textColor CONSTANT)
    Q_PROPERTY(QQmlListProperty<zelmo::FontSizeSetting> sizes READ sizesForQml CONSTANT)
    Q_PROPERTY(bool showsTileBackgrounds READ showsTileBackgrounds WRITE setShowsTileBackgrounds NOTIFY
                   showsTileBackgroundsChanged)

public:
    AppearanceSettings(Preferences& preferences, QObject* parent);

    PickerSetting* font() const { return m_font; }
    PickerSetting* background() const { return m_background; }
    ColorSetting* backgroundColor() const { return m_backgroundColor; }
    bool backgroundColorCounts() const;
    ColorSetting* textColor() const { return m_textColor; }
    // As they stand below each other.
    const QList<FontSizeSetting*>& sizes() const { return m_sizes; }
    QQmlListProperty<FontSizeSetting> sizesForQml() { return {this, &m_sizes}; }
    bool showsTileBackgrounds() const;
    void setShowsTileBackgrounds(bool shows);

Q_SIGNALS:
    void backgroundChanged();
    void showsTileBackgroundsChanged();

private:
    Preferences& m_preferences;
    PickerSetting* m_font;
    PickerSetting* m_background;
    ColorSetting* m_backgroundColor;
    ColorSetting* m_textColor;
    QList<FontSizeSetting*> m_sizes;
};

} // namespace zelmo
