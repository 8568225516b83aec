#include "platform/linux/icons/SvgEffectText.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace zelmo {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double measuresAround = 8; // more than around a circle or a square

// The numbers in a text without their signs, one after the other. A sign needs no space before it, nor does a point
// when the number has one already.
class Magnitudes {
public:
    explicit Magnitudes(QStringView text) : m_text(text) {}

    std::optional<double> next() {
        while (m_at < m_text.size() && !m_text[m_at].isDigit() && m_text[m_at] != u'.')
            ++m_at;
        if (m_at == m_text.size())
            return std::nullopt;
        const qsizetype start = m_at;
        bool hasPoint = false;
        for (; isDigitAt(m_at) || (!hasPoint && m_at < m_text.size() && m_text[m_at] == u'.'); ++m_at)
            hasPoint = hasPoint || m_text[m_at] == u'.';
        skipExponent();
        return m_text.sliced(start, m_at - start).toDouble();
    }

private:
    bool isDigitAt(qsizetype at) const { return at < m_text.size() && m_text[at].isDigit(); }

    void skipExponent() {
        if (m_at == m_text.size() || m_text[m_at].toLower() != u'e')
            return;
        qsizetype at = m_at + 1;
        at += at < m_text.size() && (m_text[at] == u'+' || m_text[at] == u'-') ? 1 : 0;
        while (isDigitAt(at))
            m_at = ++at;
    }

    QStringView m_text;
    qsizetype m_at = 0;
};

// By one function of a transform.
double enlargementOf(QStringView function, QStringView arguments) {
    std::vector<double> numbers;
    Magnitudes magnitudes(arguments);
    while (const std::optional<double> number = magnitudes.next())
        numbers.push_back(*number);
    if (function == u"translate" || function == u"rotate")
        return 1;
    if (function == u"scale" && !numbers.empty())
        return *std::max_element(numbers.begin(), numbers.end());
    if (function != u"matrix" || numbers.size() != 6)
        return infinity;
    return std::sqrt(std::max(numbers[0] + numbers[1], numbers[2] + numbers[3]) *
                     std::max(numbers[0] + numbers[2], numbers[1] + numbers[3]));
}

struct FilterPart {
    QStringView name;
    qint64 paint;
};
constexpr std::array filterParts{
    FilterPart{u"feBlend", 30},
    FilterPart{u"feColorMatrix", 30},
    FilterPart{u"feComponentTransfer", 30},
    FilterPart{u"feComposite", 30},
    FilterPart{u"feDiffuseLighting", 70},
    FilterPart{u"feDistantLight", 0},
    FilterPart{u"feDropShadow", 150},
    FilterPart{u"feFlood", 30},
    FilterPart{u"feFuncA", 0},
    FilterPart{u"feFuncB", 0},
    FilterPart{u"feFuncG", 0},
    FilterPart{u"feFuncR", 0},
    FilterPart{u"feGaussianBlur", 100},
    FilterPart{u"feMerge", 30},
    FilterPart{u"feMergeNode", 30},
    FilterPart{u"feOffset", 30},
    FilterPart{u"fePointLight", 0},
    FilterPart{u"feSpecularLighting", 70},
    FilterPart{u"feSpotLight", 0},
};

} // namespace

bool mayHaveSvgEffects(const QByteArray& bytes) {
    for (const char* word : {"mask", "filter", "clip-path", "marker", "pattern", "symbol", "mix-blend-mode", "<text",
                             ":text", "<svg:svg"}) {
        if (bytes.contains(word))
            return true;
    }
    return (bytes.contains("Gradient") && bytes.contains("href=")) || bytes.count("<svg") > 1;
}

bool isPlainSvgText(const QByteArray& bytes) {
    const qsizetype start = bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    return bytes.size() > start && (bytes[start] == '<' || QChar::isSpace(static_cast<uchar>(bytes[start]))) &&
           !bytes.contains('\0');
}

std::optional<qint64> svgFilterPartCost(QStringView element) {
    const auto part = std::find_if(filterParts.begin(), filterParts.end(),
                                   [&](const FilterPart& known) { return known.name == element; });
    return part == filterParts.end() ? std::nullopt : std::optional(part->paint);
}

std::optional<double> svgMeasure(QStringView text) {
    const QStringView value = text.trimmed();
    bool isNumber = false;
    const double number = (value.endsWith(u"px") ? value.chopped(2) : value).toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(std::abs(number)) : std::nullopt;
}

double svgEnlargement(QStringView transform) {
    double product = 1;
    for (QStringView rest = transform.trimmed(); !rest.isEmpty();) {
        const qsizetype start = rest.indexOf(u'(');
        const qsizetype end = rest.indexOf(u')');
        if (start < 0 || end < start)
            return infinity;
        product *= std::max(1.0, enlargementOf(rest.first(start), rest.sliced(start + 1, end - start - 1)));
        rest = rest.sliced(end + 1);
        while (!rest.isEmpty() && (rest.front().isSpace() || rest.front() == u','))
            rest = rest.sliced(1);
    }
    return product;
}

SvgOutline SvgOutline::ofDescription(QStringView text) {
    SvgOutline outline;
    double largest = 0;
    double sum = 0;
    Magnitudes magnitudes(text);
    while (const std::optional<double> number = magnitudes.next()) {
        ++outline.points;
        largest = std::max(largest, *number);
        sum += *number;
    }
    const qint64 closings = text.count(u'z', Qt::CaseInsensitive);
    outline.points += closings;
    // A part of it may be closed from as far away as all the numbers before lead.
    outline.length = static_cast<double>(outline.points) * 2 * largest;
    if (closings > 0)
        outline.length += static_cast<double>(closings) * sum;
    // Curves that swing up lead farther away with each of them.
    if (text.contains(u't', Qt::CaseInsensitive))
        outline.length = infinity;
    return outline;
}

SvgOutline SvgOutline::ofMeasure(QStringView text) {
    return {1, measuresAround * svgMeasure(text).value_or(infinity)};
}

} // namespace zelmo
