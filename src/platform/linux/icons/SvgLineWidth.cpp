#include "platform/linux/icons/SvgLineWidth.h"

#include "platform/linux/icons/SvgEffectText.h"

#include <algorithm>
#include <limits>

namespace zelmo {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double widthLimit = 100; // of a line, in widths of the picture

struct Side {
    double smaller = 0;
    double larger = 0;
};

// Of a view box; nothing when it is none.
Side sidesOf(QStringView viewBox) {
    const QStringList numbers = viewBox.toString().replace(u',', u' ').simplified().split(u' ');
    const double width = numbers.size() == 4 ? svgMeasure(numbers[2]).value_or(0) : 0;
    const double height = numbers.size() == 4 ? svgMeasure(numbers[3]).value_or(0) : 0;
    const bool isBox = width > 0 && height > 0 && svgMeasure(numbers[0]) && svgMeasure(numbers[1]);
    return isBox ? Side{std::min(width, height), std::max(width, height)} : Side{};
}

} // namespace

void SvgLineWidth::readElement(int index, QStringView name, const QXmlStreamAttributes& attributes) {
    if (index == 0)
        return readRoot(attributes);
    Enlarged enlarged{index, svgEnlargement(attributes.value(QLatin1StringView("patternTransform"))), 0, false};
    for (const char* units : {"clipPathUnits", "maskContentUnits", "patternContentUnits"}) {
        const QStringView value = attributes.value(QLatin1StringView(units));
        if (!value.isEmpty() && value != u"userSpaceOnUse")
            enlarged.factor = infinity;
    }
    enlarged.isByMarker = name == u"marker" && attributes.value(QLatin1StringView("markerUnits")) != u"userSpaceOnUse";
    if (const QStringView viewBox = attributes.value(QLatin1StringView("viewBox")); !viewBox.isEmpty()) {
        enlarged.viewBox = sidesOf(viewBox).smaller;
        if (enlarged.viewBox == 0)
            enlarged.factor = infinity;
    }
    if (name == u"svg" || name == u"use" || name == u"symbol" || name == u"marker" || name == u"pattern") {
        for (const char* side : {"width", "height", "markerWidth", "markerHeight"})
            m_largestFrame = std::max(m_largestFrame, measure(attributes.value(QLatin1StringView(side))));
    }
    if (enlarged.factor > 1 || enlarged.viewBox > 0 || enlarged.isByMarker)
        m_enlarged.push_back(enlarged);
}

void SvgLineWidth::apply(int index, const SvgDeclarations& declarations) {
    m_widest = std::max(m_widest, declarations.lineWidth);
    if (declarations.enlargement > 1)
        m_enlarged.push_back({.index = index, .factor = declarations.enlargement});
}

void SvgLineWidth::applyToAll(const SvgDeclarations& declarations) {
    if (declarations.enlargement > 1)
        m_widest = infinity;
    m_widest = std::max(m_widest, declarations.lineWidth);
}

void SvgLineWidth::enlarge(SvgCostTree& tree) const {
    for (const Enlarged& enlarged : m_enlarged) {
        const double shown = enlarged.viewBox > 0 ? std::max(1.0, m_largestFrame / enlarged.viewBox) : 1;
        tree.enlarge(enlarged.index, enlarged.factor * shown * (enlarged.isByMarker ? m_widest : 1));
    }
}

bool SvgLineWidth::isBounded(double enlargement) const {
    return m_widest * enlargement <= widthLimit * m_extent;
}

double SvgLineWidth::measure(QStringView text) const {
    const QStringView value = text.trimmed();
    if (value.isEmpty())
        return 0;
    if (value.endsWith(u'%'))
        return svgMeasure(value.chopped(1)).value_or(infinity) / 100 * m_extent;
    return svgMeasure(value).value_or(infinity);
}

void SvgLineWidth::readRoot(const QXmlStreamAttributes& attributes) {
    if (const QStringView viewBox = attributes.value(QLatin1StringView("viewBox")); !viewBox.isEmpty())
        m_extent = sidesOf(viewBox).larger;
    else
        m_extent = std::max(svgMeasure(attributes.value(QLatin1StringView("width"))).value_or(0),
                            svgMeasure(attributes.value(QLatin1StringView("height"))).value_or(0));
    m_largestFrame = std::max(m_largestFrame, m_extent);
}

} // namespace zelmo
