#pragma once

#include "preferences/Preferences.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace zelmo {

// One of the wall's text sizes, in whole points within its range. Shows a stored size that is neither as the nearest
// that is, and leaves it as stored until another one is chosen. Owned by the appearance section; main thread.
class FontSizeSetting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its preference")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(int smallest READ smallest CONSTANT)
    Q_PROPERTY(int largest READ largest CONSTANT)
    Q_PROPERTY(int size READ size NOTIFY sizeChanged)

public:
    // In points.
    struct Range {
        int smallest;
        int largest;
    };

    template <PreferenceKey key>
    static FontSizeSetting* make(Preferences& preferences, const QString& title, Range range, QObject* parent) {
        auto* setting = new FontSizeSetting(parent);
        setting->m_title = title;
        setting->m_range = range;
        setting->m_fallback = preferenceDefault<key>();
        setting->m_read = [&preferences] { return preferences.value<key>(); };
        setting->m_write = [&preferences](double size) { preferences.setValue<key>(size); };
        connect(&preferences, &Preferences::changed, setting, [setting](PreferenceKey changed) {
            if (changed == key)
                Q_EMIT setting->sizeChanged();
        });
        return setting;
    }

    const QString& title() const { return m_title; }
    int smallest() const { return m_range.smallest; }
    int largest() const { return m_range.largest; }
    int size() const;
    // Takes the nearest size that there is; does nothing when that is shown already.
    Q_INVOKABLE void choose(double size);

Q_SIGNALS:
    void sizeChanged();

private:
    using QObject::QObject;

    int nearest(double size) const;

    QString m_title;
    Range m_range{};
    double m_fallback = 0;
    std::function<double()> m_read;
    std::function<void(double)> m_write;
};

} // namespace zelmo
