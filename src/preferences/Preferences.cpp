#include "preferences/Preferences.h"

#include "preferences/PreferencesStorage.h"

namespace zelmo {

Preferences::Preferences(PreferencesStorage& storage) : m_storage(storage) {
    const PreferenceValues values = m_storage.read();
    for (const PreferenceRow& row : preferenceTable) {
        const auto found = values.constFind(preferenceName(row.key));
        if (found != values.constEnd())
            m_values[preferenceIndex(row.key)] = *found;
    }
    m_writeTimer.setSingleShot(true);
    m_writeTimer.setInterval(writeDelay);
    connect(&m_writeTimer, &QTimer::timeout, this, &Preferences::flush);
    m_storage.setOutsideChangeHandler([this] { readOutsideChange(); });
}

Preferences::~Preferences() {
    m_storage.setOutsideChangeHandler({});
    flush();
}

bool Preferences::flush() {
    m_writeTimer.stop();
    if (m_unwritten.none())
        return true;
    PreferenceValues changes;
    for (const PreferenceRow& row : preferenceTable) {
        if (m_unwritten.test(preferenceIndex(row.key)))
            changes.insert(preferenceName(row.key), *m_values[preferenceIndex(row.key)]);
    }
    if (!m_storage.write(changes))
        return false;
    m_unwritten.reset();
    return true;
}

void Preferences::assign(PreferenceKey key, PreferenceValue value) {
    auto& slot = m_values[preferenceIndex(key)];
    if (slot == value)
        return;
    slot = std::move(value);
    m_unwritten.set(preferenceIndex(key));
    // Left running when it is: a stream of changes is stored every `writeDelay`, not only at its end.
    if (!m_writeTimer.isActive())
        m_writeTimer.start();
    Q_EMIT changed(key);
}

void Preferences::readOutsideChange() {
    const PreferenceValues values = m_storage.read();
    for (const PreferenceRow& row : preferenceTable) {
        const std::size_t index = preferenceIndex(row.key);
        if (m_unwritten.test(index))
            continue;
        std::optional<PreferenceValue> fresh;
        const auto found = values.constFind(preferenceName(row.key));
        if (found != values.constEnd())
            fresh = *found;
        if (fresh == m_values[index])
            continue;
        m_values[index] = std::move(fresh);
        Q_EMIT changed(row.key);
    }
}

} // namespace zelmo
