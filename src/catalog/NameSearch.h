#pragma once

#include "catalog/LaunchableApp.h"

#include <QList>
#include <QLocale>

#include <vector>

namespace zelmo {

// Answers which names contain a text, without regard to case by the rules of one locale; composed
// and decomposed forms of a letter are the same letter, and a letter with an accent is another one
// than without. Holds the folded names of one catalog in one stretch of memory. Main thread only.
class NameSearch {
public:
    NameSearch(const QList<LaunchableApp>& apps, const QLocale& locale);

    // The positions in `apps` of the names that contain `text`, ascending. Every name contains an empty text.
    std::vector<qsizetype> find(const QString& text) const;

private:
    QString fold(const QString& text) const;
    bool endsInsideLetter(qsizetype end) const;

    bool m_hasDottedI = false;
    QString m_names;                 // folded, each followed by a separator
    std::vector<qsizetype> m_starts; // of each name in m_names
};

} // namespace zelmo
