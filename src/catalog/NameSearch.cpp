#include "catalog/NameSearch.h"

#include <QStringMatcher>

namespace zelmo {

namespace {

constexpr char16_t separator = u'\0';

bool isAscii(const QString& text) {
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
}

bool isCombining(QChar c) {
    return c.category() == QChar::Mark_NonSpacing || c.category() == QChar::Mark_Enclosing;
}

} // namespace

NameSearch::NameSearch(const QList<LaunchableApp>& apps, const QLocale& locale)
    : m_hasDottedI(locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani) {
    m_starts.reserve(static_cast<std::size_t>(apps.size()));
    for (const LaunchableApp& app : apps) {
        m_starts.push_back(m_names.size());
        m_names += fold(app.name);
        m_names += QChar(separator);
    }
}

std::vector<qsizetype> NameSearch::find(const QString& text) const {
    std::vector<qsizetype> found;
    const QString folded = fold(text);
    if (folded.isEmpty()) {
        found.resize(m_starts.size());
        for (std::size_t i = 0; i < found.size(); ++i)
            found[i] = static_cast<qsizetype>(i);
        return found;
    }
    if (folded.contains(QChar(separator)))
        return found;

    const QStringMatcher matcher(folded);
    auto next = m_starts.cbegin();
    qsizetype from = 0;
    for (;;) {
        const qsizetype hit = matcher.indexIn(m_names, from);
        if (hit < 0)
            return found;
        if (endsInsideLetter(hit + folded.size())) {
            from = hit + 1;
            continue;
        }
        next = std::upper_bound(next, m_starts.cend(), hit);
        found.push_back(next - m_starts.cbegin() - 1);
        if (next == m_starts.cend())
            return found;
        from = *next;
    }
}

QString NameSearch::fold(const QString& text) const {
    if (isAscii(text) && !m_hasDottedI)
        return text.toLower();
    QString folded = text.normalized(QString::NormalizationForm_C);
    if (m_hasDottedI) {
        folded.replace(QChar(u'I'), QChar(u'\u0131'));
        folded.replace(QChar(u'\u0130'), QChar(u'i'));
    }
    folded = folded.toCaseFolded();
    // The library folds one letter to one letter; this is the one that folds to two in everyday names.
    folded.replace(QChar(u'\u00df'), QLatin1StringView("ss"));
    return folded.normalized(QString::NormalizationForm_C);
}

// A match that stops before a combining mark has found only a part of a letter.
bool NameSearch::endsInsideLetter(qsizetype end) const {
    return end < m_names.size() && isCombining(m_names[end]);
}

} // namespace zelmo
