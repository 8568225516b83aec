#pragma once

#include "settings/PickerSetting.h"

namespace zelmo {

// The section that hides the experimental layouts until its button has been pressed three times. What it counts lives
// as long as the form, which owns it; main thread.
class ComingSoonSettings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the form")
    Q_PROPERTY(int comingSoonTapCount READ comingSoonTapCount NOTIFY changed)
    Q_PROPERTY(bool showsComingSoonExtras READ showsComingSoonExtras NOTIFY changed)
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString caption READ caption NOTIFY changed)
    Q_PROPERTY(zelmo::PickerSetting* interfaceStyle READ interfaceStyle CONSTANT)

public:
    static constexpr int tapsNeeded = 3;

    ComingSoonSettings(Preferences& preferences, QObject* parent);

    int comingSoonTapCount() const { return m_comingSoonTapCount; }
    bool showsComingSoonExtras() const { return m_showsComingSoonExtras; }
    QString symbol() const;
    QString title() const;
    // The number of taps still needed while the extras are hidden.
    QString caption() const;
    PickerSetting* interfaceStyle() const { return m_interfaceStyle; }

    Q_INVOKABLE void revealComingSoonExtras();

Q_SIGNALS:
    void changed();

private:
    int m_comingSoonTapCount = 0;
    bool m_showsComingSoonExtras = false;
    PickerSetting* m_interfaceStyle;
};

} // namespace zelmo
