#include "platform/linux/icons/SvgEffectText.h"

#include <QString>

#include <algorithm>
#include <array>
#include <limits>

namespace zelmo {

namespace {

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
SvgNumbers SvgNumbers::in(QStringView text) {
    SvgNumbers numbers;
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype start = at;
        bool hasPoint = false;
        while (at < text.size() && (text[at].isDigit() || (text[at] == u'.' && !hasPoint))) {
            hasPoint = hasPoint || text[at] == u'.';
            ++at;
        }
        if (at == start) {
            ++at;
            continue;
        }
        ++numbers.count;
        const bool hasExponent = at < text.size() && (text[at] == u'e' || text[at] == u'E') && at + 1 < text.size() &&
                                 (text[at + 1].isDigit() || text[at + 1] == u'+');
        numbers.largest = hasExponent ? std::numeric_limits<double>::infinity()
                                      : std::max(numbers.largest, text.sliced(start, at - start).toDouble());
    }
    return numbers;
}

} // namespace zelmo
