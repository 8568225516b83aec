#pragma once

#include <QByteArray>
#include <QList>

#include <string_view>

namespace zelmo {

// The variables of the environment that say which language a person reads; an empty one counts as unset.
struct LocaleVariables {
    QByteArray language = {}; // LANGUAGE: several locales in order of preference, with colons between them
    QByteArray lcAll = {};
    QByteArray lcMessages = {};
    QByteArray lang = {};
};

// The names under which a desktop entry may hold a translation for this person, the most preferred
// first: each locale is followed by its less exact forms, and "C" ends the list. A modifier counts
// more than a country, so that a text in another script is the last resort. A value; any thread.
class LocaleNames {
public:
    explicit LocaleNames(const LocaleVariables& variables);
    static LocaleNames fromEnvironment();

    const QList<QByteArray>& names() const { return m_names; }
    // The position in `names()`, -1 for a locale that is not wanted.
    qsizetype rankOf(std::string_view locale) const;

private:
    QList<QByteArray> m_names;
};

} // namespace zelmo
