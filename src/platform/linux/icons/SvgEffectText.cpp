#include "platform/linux/icons/SvgEffectText.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zelmo {

namespace {

constexpr double measuresAround = 8; // more than around a circle or a square

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

// A sign needs no space before it, nor does a point when the number has one already.
SvgOutline SvgOutline::ofDescription(QStringView text) {
    SvgOutline outline;
    double largest = 0;
    double sum = 0;
    qint64 closings = 0;
    bool isTold = true;
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype start = at;
        bool hasPoint = false;
        while (at < text.size() && (text[at].isDigit() || (text[at] == u'.' && !hasPoint))) {
            hasPoint = hasPoint || text[at] == u'.';
            ++at;
        }
        if (at == start) {
            const QChar letter = text[at++].toLower();
            closings += letter == u'z' ? 1 : 0;
            // These lead farther away with each of them.
            isTold = isTold && letter != u't';
            continue;
        }
        ++outline.points;
        const bool hasExponent = at < text.size() && (text[at] == u'e' || text[at] == u'E') && at + 1 < text.size() &&
                                 (text[at + 1].isDigit() || text[at + 1] == u'+');
        isTold = isTold && !hasExponent;
        const double number = text.sliced(start, at - start).toDouble();
        largest = std::max(largest, number);
        sum += number;
    }
    outline.points += closings;
    // A part of it may be closed from as far away as all the numbers before lead.
    outline.length = static_cast<double>(outline.points) * 2 * largest;
    if (closings > 0)
        outline.length += static_cast<double>(closings) * sum;
    if (!isTold)
        outline.length = std::numeric_limits<double>::infinity();
    return outline;
}

SvgOutline SvgOutline::ofMeasure(QStringView text) {
    const QStringView value = text.trimmed();
    bool isNumber = false;
    const double number = (value.endsWith(u"px") ? value.chopped(2) : value).toDouble(&isNumber);
    const bool isTold = isNumber && std::isfinite(number);
    return {1, isTold ? measuresAround * std::abs(number) : std::numeric_limits<double>::infinity()};
}

} // namespace zelmo
