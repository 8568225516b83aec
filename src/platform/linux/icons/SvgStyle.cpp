#include "platform/linux/icons/SvgStyle.h"

#include "platform/linux/icons/SvgEffectText.h"

#include <algorithm>
#include <optional>

namespace zelmo {

namespace {

// Nanoseconds for each pixel, as measured.
constexpr qint64 opacityCost = 3;
constexpr qint64 blendCost = 20;
constexpr qint64 maskCost = 13;
constexpr qint64 filterCost = 6;
constexpr qint64 filterFunctionCost = 100;

// Beyond what any picture needs; each element and each class keeps its own.
constexpr std::size_t referenceLimit = 16;
constexpr qsizetype classLimit = 4000;

bool mentionsAddress(QStringView value) {
    return value.contains(QLatin1StringView("url"), Qt::CaseInsensitive);
}

// The identifier in "url(#identifier)", with whatever follows; none when the value is anything else.
std::optional<QString> identifierIn(QStringView value) {
    if (!value.startsWith(QLatin1StringView("url(")))
        return {};
    const qsizetype end = value.indexOf(u')');
    if (end < 0 || mentionsAddress(value.sliced(end)))
        return {};
    QStringView target = value.first(end).sliced(4).trimmed();
    if (target.size() >= 2 && (target.front() == u'"' || target.front() == u'\'') && target.back() == target.front())
        target = target.sliced(1).chopped(1);
    if (!target.startsWith(u'#') || target.contains(u'%') || target.contains(u'\\'))
        return {};
    return target.sliced(1).toString();
}

bool isGeometry(QStringView property) {
    static constexpr QStringView names[] = {u"x", u"y", u"cx", u"cy", u"r", u"rx", u"ry", u"width", u"height"};
    return std::find(std::begin(names), std::end(names), property) != std::end(names);
}

bool isClassSelector(QStringView selector) {
    return selector.size() > 1 && selector.front() == u'.' &&
           std::all_of(selector.begin() + 1, selector.end(),
                       [](QChar c) { return c.isLetterOrNumber() || c == u'-' || c == u'_'; });
}

} // namespace

void SvgDeclarations::declare(QStringView property, QStringView value) {
    value = value.trimmed();
    if (value.isEmpty() || value == u"none")
        return;
    if (property == u"mask") {
        refer(value, SvgReference::Kind::drawn, maskCost);
    } else if (property == u"clip-path") {
        refer(value, SvgReference::Kind::clipping, 0);
    } else if (property == u"filter") {
        filter(value);
    } else if (property == u"marker" || property.startsWith(QLatin1StringView("marker-"))) {
        areEffects = true;
        if (const std::optional<QString> identifier = identifierIn(value))
            markers.push_back(*identifier);
        else
            areClear = false;
    } else if (property == u"fill" || property == u"stroke") {
        // Of another outline: it may cost whatever that has.
        areClear = areClear && !value.startsWith(u"context-");
        if (!mentionsAddress(value))
            return;
        if (const std::optional<QString> identifier = identifierIn(value))
            paints.push_back(*identifier);
        else
            areClear = false;
    } else if (property == u"opacity") {
        paint += value == u"1" ? 0 : opacityCost;
    } else if (property == u"mix-blend-mode" && value != u"normal") {
        areEffects = true;
        paint += blendCost;
    } else if (property == u"isolation") {
        paint += blendCost;
    } else if (property == u"stroke-dasharray") {
        dash(value);
    } else if (property == u"vector-effect" || property == u"pathLength") {
        // Dashes then have another scale than the outline.
        areClear = false;
    } else if (property == u"stroke-width") {
        lineWidth = std::max(lineWidth, svgMeasure(value).value_or(std::numeric_limits<double>::infinity()));
    } else if (property == u"transform") {
        enlargement *= svgEnlargement(value);
        // Whatever else there is may scale.
        areScaling = areScaling || value.count(u'(') != value.count(u"translate(") + value.count(u"rotate(");
    }
}

void SvgDeclarations::refer(QStringView value, SvgReference::Kind kind, qint64 cost) {
    areEffects = true;
    paint += cost;
    if (const std::optional<QString> identifier = identifierIn(value))
        references.push_back({*identifier, kind});
    else
        areClear = false;
}

// One or several, each by its address or as a function.
void SvgDeclarations::filter(QStringView value) {
    if (const std::optional<QString> identifier = identifierIn(value); identifier && value.count(u'(') == 1)
        return refer(value, SvgReference::Kind::drawn, filterCost);
    areEffects = true;
    areClear = areClear && !mentionsAddress(value) && value.contains(u'(');
    paint += value.count(u'(') * filterFunctionCost;
}

void SvgDeclarations::dash(QStringView value) {
    double length = 0;
    bool isNumber = true;
    const QStringList numbers = value.toString().replace(u',', u' ').simplified().split(u' ');
    for (const QString& number : numbers) {
        bool isThisOne = false;
        length += (number.endsWith(u"px") ? QStringView(number).chopped(2) : QStringView(number)).toDouble(&isThisOne);
        isNumber = isNumber && isThisOne;
    }
    areClear = areClear && isNumber;
    // Nothing but zeros makes a whole line.
    if (length > 0)
        dashes = std::min(dashes, length);
}

void SvgDeclarations::declareStyle(QStringView style) {
    if (style.contains(u'\\') || style.contains(QLatin1StringView("/*")) || style.contains(u'{'))
        areClear = false;
    for (const QStringView declaration : style.split(u';')) {
        const qsizetype colon = declaration.indexOf(u':');
        if (colon < 0)
            continue;
        const QString property = declaration.first(colon).trimmed().toString().toLower();
        QString value = declaration.sliced(colon + 1).trimmed().toString();
        if (const qsizetype mark = value.indexOf(u'!'); mark >= 0)
            value.truncate(mark);
        if (isGeometry(property))
            areClear = false;
        declare(property, value);
    }
    bound();
}

void SvgDeclarations::bound() {
    if (references.size() + paints.size() + markers.size() <= referenceLimit)
        return;
    references.clear();
    paints.clear();
    markers.clear();
    areClear = false;
}

void SvgDeclarations::operator+=(const SvgDeclarations& other) {
    references.insert(references.end(), other.references.begin(), other.references.end());
    paints.insert(paints.end(), other.paints.begin(), other.paints.end());
    markers.insert(markers.end(), other.markers.begin(), other.markers.end());
    paint += other.paint;
    areEffects = areEffects || other.areEffects;
    dashes = std::min(dashes, other.dashes);
    lineWidth = std::max(lineWidth, other.lineWidth);
    enlargement *= other.enlargement;
    areScaling = areScaling || other.areScaling;
    areClear = areClear && other.areClear;
    bound();
}

void SvgStyleSheet::read(const QString& text) {
    QString sheet = text;
    for (qsizetype start = sheet.indexOf(u"/*"); start >= 0; start = sheet.indexOf(u"/*", start)) {
        const qsizetype end = sheet.indexOf(u"*/", start + 2);
        sheet.replace(start, end < 0 ? sheet.size() - start : end + 2 - start, QStringLiteral(" "));
    }
    // Strings may hold whatever else has a meaning.
    const bool isQuoted = text.contains(u'"') || text.contains(u'\'');
    if (sheet.contains(u'\\') || sheet.contains(u'@') || (isQuoted && sheet.size() != text.size()))
        m_others.areClear = false;
    const auto rules = QStringView(sheet).split(u'}');
    for (const QStringView rule : rules) {
        const qsizetype brace = rule.indexOf(u'{');
        if (brace >= 0)
            readRule(rule.first(brace), rule.sliced(brace + 1));
    }
}

void SvgStyleSheet::readRule(QStringView selectors, QStringView style) {
    SvgDeclarations declarations;
    declarations.declareStyle(style);
    for (const QStringView selector : selectors.split(u',')) {
        const QStringView name = selector.trimmed();
        if (isClassSelector(name) && m_classes.size() < classLimit)
            m_classes[name.sliced(1).toString()] += declarations;
        else
            m_others += declarations;
    }
}

SvgDeclarations SvgStyleSheet::ofClasses(QStringView classes) const {
    SvgDeclarations sum;
    const QStringList names = classes.toString().simplified().split(u' ', Qt::SkipEmptyParts);
    for (const QString& name : names) {
        if (const auto found = m_classes.constFind(name); found != m_classes.constEnd())
            sum += *found;
    }
    return sum;
}

} // namespace zelmo
