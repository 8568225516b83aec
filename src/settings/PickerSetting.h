#pragma once

#include "preferences/Preferences.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace zelmo {

namespace detail {

template <typename Style>
QStringList titles(int count) {
    QStringList list;
    for (int i = 0; i < count; ++i)
        list.append(title(static_cast<Style>(i)));
    return list;
}

} // namespace detail

// One choice among the cases of an enumeration, bound to its preference. Owned by the section that it stands in; main
// thread.
class PickerSetting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its preference")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QStringList rows READ rows CONSTANT)
    // A text in the preferences that names no case shows as the default one.
    Q_PROPERTY(int index READ index WRITE setIndex NOTIFY indexChanged)

public:
    // The cases of `Style` from 0 to `count`, named by its `title()` and stored as its `rawValue()`.
    template <PreferenceKey key, typename Style, typename FromRawValue>
    static PickerSetting* make(Preferences& preferences, const QString& title, int count, FromRawValue fromRawValue,
                               QObject* parent) {
        auto* picker = new PickerSetting(parent);
        picker->m_title = title;
        picker->m_rows = detail::titles<Style>(count);
        const auto fallback = *fromRawValue(preferenceDefault<key>());
        picker->m_read = [&preferences, fromRawValue, fallback] {
            return static_cast<int>(fromRawValue(preferences.value<key>()).value_or(fallback));
        };
        picker->m_write = [&preferences](int index) { preferences.setValue<key>(rawValue(static_cast<Style>(index))); };
        connect(&preferences, &Preferences::changed, picker, [picker](PreferenceKey changed) {
            if (changed == key)
                Q_EMIT picker->indexChanged();
        });
        return picker;
    }

    const QString& title() const { return m_title; }
    const QStringList& rows() const { return m_rows; }
    int index() const { return m_read(); }
    // Does nothing where there is no such row.
    void setIndex(int index);

Q_SIGNALS:
    void indexChanged();

private:
    using QObject::QObject;

    QString m_title;
    QStringList m_rows;
    std::function<int()> m_read;
    std::function<void(int)> m_write;
};

} // namespace zelmo
