#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

class ColorScheme;

// The colours of the settings, light or dark as the desktop has it, with its accent colour. Where the desktop does not
// say, the toolkit's own window colour decides. Owned by the settings window; main thread.
class SettingsPalette : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the desktop's colours")
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(QColor window READ window NOTIFY changed)
    Q_PROPERTY(QColor group READ group NOTIFY changed)
    Q_PROPERTY(QColor popup READ popup NOTIFY changed)
    Q_PROPERTY(QColor outline READ outline NOTIFY changed)
    Q_PROPERTY(QColor separator READ separator NOTIFY changed)
    Q_PROPERTY(QColor text READ text NOTIFY changed)
    Q_PROPERTY(QColor secondaryText READ secondaryText NOTIFY changed)
    Q_PROPERTY(QColor control READ control NOTIFY changed)
    Q_PROPERTY(QColor pressedControl READ pressedControl NOTIFY changed)
    Q_PROPERTY(QColor controlOutline READ controlOutline NOTIFY changed)
    Q_PROPERTY(QColor track READ track NOTIFY changed)
    Q_PROPERTY(QColor knob READ knob CONSTANT)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QColor accentText READ accentText NOTIFY changed)
    Q_PROPERTY(QColor orange READ orange NOTIFY changed)
    Q_PROPERTY(QColor green READ green NOTIFY changed)

public:
    // Starts to listen to the desktop, which outlives it.
    explicit SettingsPalette(ColorScheme& scheme);
    ~SettingsPalette() override;

    bool isDark() const { return m_isDark; }
    QColor window() const;
    QColor group() const;
    QColor popup() const;
    QColor outline() const;
    QColor separator() const;
    QColor text() const;
    QColor secondaryText() const;
    QColor control() const;
    QColor pressedControl() const;
    QColor controlOutline() const;
    QColor track() const;
    QColor knob() const;
    // The user's, moved towards the text's colour as far as it takes to stand out from the group.
    QColor accent() const { return m_accent; }
    // White where that is easy to read on the accent, else whichever of black and white is easier.
    QColor accentText() const;
    QColor orange() const;
    QColor green() const;

    // How far two opaque colours stand apart, from 1 to 21.
    static double contrast(const QColor& first, const QColor& second);

    bool eventFilter(QObject* object, QEvent* event) override;

Q_SIGNALS:
    void changed();

private:
    void follow();
    QColor pick(const QColor& light, const QColor& dark) const { return m_isDark ? dark : light; }

    ColorScheme& m_scheme;
    bool m_isDark = false;
    QColor m_accent;
};

} // namespace zelmo
