#include "platform/linux/freedesktop/LocaleNames.h"

namespace zelmo {

namespace {

QByteArray firstThatIsSet(std::initializer_list<QByteArray> values) {
    for (const QByteArray& value : values) {
        if (!value.isEmpty())
            return value;
    }
    return QByteArrayLiteral("C");
}

// Appends language[_COUNTRY][.CODESET][@MODIFIER] and all that remains when parts are left out.
void appendForms(QList<QByteArray>& names, const QByteArray& locale) {
    const auto find = [&](char mark, qsizetype from) {
        const qsizetype position = locale.indexOf(mark, from);
        return position < 0 ? locale.size() : position;
    };
    // Each part is looked for after the one before it, when that one is there.
    const auto startAfter = [&](qsizetype position, qsizetype otherwise) {
        return position < locale.size() ? position : otherwise;
    };
    const qsizetype underscore = find('_', 0);
    const qsizetype dotSearch = startAfter(underscore, 0);
    const qsizetype dot = find('.', dotSearch);
    const qsizetype at = find('@', startAfter(dot, dotSearch));

    const qsizetype codesetStart = std::min(dot, at);
    const qsizetype countryStart = std::min(underscore, codesetStart);
    const QByteArray language = locale.left(countryStart);
    const QByteArray country = locale.mid(countryStart, codesetStart - countryStart);
    const QByteArray codeset = locale.mid(codesetStart, at - codesetStart);
    const QByteArray modifier = locale.mid(at);

    QList<QByteArray> modifiers{modifier};
    if (!modifier.isEmpty())
        modifiers.append(QByteArray());
    for (const QByteArray& lastPart : std::as_const(modifiers)) {
        if (!country.isEmpty() && !codeset.isEmpty())
            names.append(language + country + codeset + lastPart);
        if (!country.isEmpty())
            names.append(language + country + lastPart);
        if (!codeset.isEmpty())
            names.append(language + codeset + lastPart);
        names.append(language + lastPart);
    }
}

} // namespace

LocaleNames::LocaleNames(const LocaleVariables& variables) {
    const QByteArray locales =
        firstThatIsSet({variables.language, variables.lcAll, variables.lcMessages, variables.lang});
    for (const QByteArray& locale : locales.split(':'))
        appendForms(m_names, locale);
    m_names.append(QByteArrayLiteral("C"));
}

LocaleNames LocaleNames::fromEnvironment() {
    return LocaleNames({.language = qgetenv("LANGUAGE"),
                        .lcAll = qgetenv("LC_ALL"),
                        .lcMessages = qgetenv("LC_MESSAGES"),
                        .lang = qgetenv("LANG")});
}

qsizetype LocaleNames::rankOf(std::string_view locale) const {
    for (qsizetype i = 0; i < m_names.size(); ++i) {
        if (std::string_view(m_names[i].constData(), static_cast<std::size_t>(m_names[i].size())) == locale)
            return i;
    }
    return -1;
}

} // namespace zelmo
