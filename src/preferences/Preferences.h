#pragma once

#include "preferences/PreferenceTable.h"

#include <QObject>
#include <QTimer>

#include <bitset>
#include <chrono>
#include <optional>

namespace zelmo {

class PreferencesStorage;

// The program's settings: typed values over one storage, with a signal for each change, whether made
// here or by another program. One instance is made at start-up; it lives on the main thread and
// outlives every reader. Writes reach the storage together, at most `writeDelay` after the first.
class Preferences : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds writeDelay{200};

    explicit Preferences(PreferencesStorage& storage);
    ~Preferences() override;

    // The stored value, or nothing when there is none or it is of another type.
    template <PreferenceKey key>
    std::optional<PreferenceType<key>> stored() const {
        const auto& value = m_values[preferenceIndex(key)];
        if (!value)
            return std::nullopt;
        if (const auto* typed = std::get_if<PreferenceType<key>>(&*value))
            return *typed;
        return std::nullopt;
    }

    // The stored value, or the table's default.
    template <PreferenceKey key>
    PreferenceType<key> value() const {
        if (const auto typed = stored<key>())
            return *typed;
        return preferenceDefault<key>();
    }

    template <PreferenceKey key>
    void setValue(const PreferenceType<key>& value) {
        assign(key, PreferenceValue(value));
    }

    // Stores what is still waiting. When the storage refuses, the values stay in force here and are
    // tried again with the next change.
    bool flush();

Q_SIGNALS:
    void changed(zelmo::PreferenceKey key);

private:
    void assign(PreferenceKey key, PreferenceValue value);
    void readOutsideChange();

    PreferencesStorage& m_storage;
    std::array<std::optional<PreferenceValue>, preferenceCount> m_values;
    std::bitset<preferenceCount> m_unwritten;
    QTimer m_writeTimer;
};

} // namespace zelmo
