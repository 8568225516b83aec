#include "platform/linux/icons/SvgGuard.h"

#include "platform/linux/icons/PictureFormat.h"
#include "platform/linux/icons/SvgCost.h"
#include "platform/linux/icons/SvgEffectText.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <limits>
#include <optional>

namespace zelmo {

namespace {

// An element takes about four kilobytes in the renderer, a character of an outline two hundred bytes
// when it is stroked; a dash takes as much and a microsecond. Layers for opacity count as several elements.
// A font that nobody has asked for before takes a millisecond to be looked for. A stroked line with wide round joins
// takes a seventh of one at 208 pixels.
constexpr qint64 unlimited = std::numeric_limits<qint64>::max();
constexpr SvgCost costLimit{.elements = 20'000,
                            .geometry = 512 * 1024,
                            .characters = 20'000,
                            .texts = 1000,
                            .points = unlimited,
                            .strokedPoints = 6000,
                            .dashedPoints = unlimited,
                            .outlines = unlimited,
                            .crossings = unlimited,
                            .paint = unlimited};
constexpr qint64 elementLimit = 10'000;
constexpr int nestingLimit = 64;
constexpr qint64 opacityLayerCost = 4;
constexpr qint64 letterPoints = 24;           // numbers in the outline of a letter
constexpr qint64 styleWorkLimit = 20'000'000; // characters of style sheets, for each element
constexpr qint64 dashLimit = 200'000;
constexpr double dashesPerLineLimit = 10'000; // the renderer draws finer ones as a whole line
constexpr qint64 picturePixelsLimit = 4 * 1024 * 1024;

QStringView localName(QStringView name) {
    return name.sliced(name.lastIndexOf(u':') + 1);
}

// How many numbers would describe the outline of an element that is drawn; 0 for all others.
qint64 outlinePoints(const QString& name, const QXmlStreamAttributes& attributes) {
    if (name == QLatin1StringView("path"))
        return std::max<qint64>(4, SvgOutline::ofDescription(attributes.value(QLatin1StringView("d"))).points);
    if (name == QLatin1StringView("polygon") || name == QLatin1StringView("polyline"))
        return std::max<qint64>(4, SvgOutline::ofDescription(attributes.value(QLatin1StringView("points"))).points);
    if (name == QLatin1StringView("line"))
        return 4;
    const bool isShape = name == QLatin1StringView("rect") || name == QLatin1StringView("circle") ||
                         name == QLatin1StringView("ellipse");
    return isShape ? 6 : 0;
}

// Whether a style may give outlines a stroke. What is written in any other way than the usual one counts.
bool styleStrokes(QStringView style) {
    for (qsizetype at = style.indexOf(u"stroke"); at >= 0; at = style.indexOf(u"stroke", at + 1)) {
        const QStringView rest = style.sliced(at + 6);
        if (rest.startsWith(u'-'))
            continue; // its width or the like
        const QStringView value = rest.trimmed();
        if (!value.startsWith(u':') || !value.sliced(1).trimmed().startsWith(u"none"))
            return true;
    }
    return style.contains(u'\\');
}

// The number before the unit.
double leadingNumber(QStringView text) {
    const auto end = std::find_if(text.begin(), text.end(), [](QChar c) { return !c.isDigit() && c != u'.'; });
    return text.first(end - text.begin()).toDouble();
}

// One reading of one picture.
class Reading {
public:
    explicit Reading(const QByteArray& bytes) : m_reader(bytes) { m_reader.setNamespaceProcessing(false); }

    SvgVerdict verdict() {
        while (!m_reader.atEnd() && m_verdict == SvgVerdict::accepted) {
            m_reader.readNext();
            readToken();
        }
        if (m_verdict != SvgVerdict::accepted)
            return m_verdict;
        return m_reader.hasError() || m_elementCount == 0 ? SvgVerdict::damaged : weigh();
    }

private:
    void readToken() {
        switch (m_reader.tokenType()) {
        case QXmlStreamReader::StartElement:
            openElement();
            break;
        case QXmlStreamReader::EndElement:
            m_open.pop_back();
            break;
        case QXmlStreamReader::Characters:
            readText();
            break;
        case QXmlStreamReader::DTD:
            if (m_reader.text().contains(u'['))
                refuse(SvgVerdict::declaresEntities);
            break;
        case QXmlStreamReader::ProcessingInstruction:
            if (m_reader.processingInstructionTarget() == QLatin1StringView("xml-stylesheet"))
                refuse(SvgVerdict::reachesOutside);
            break;
        default:
            break;
        }
    }

    void refuse(SvgVerdict verdict) { m_verdict = verdict; }

    void openElement() {
        const QString name = localName(m_reader.qualifiedName()).toString();
        if (++m_elementCount > elementLimit || m_open.size() >= nestingLimit)
            return refuse(SvgVerdict::tooLarge);
        if (m_elementCount == 1 && name != QLatin1StringView("svg"))
            return refuse(SvgVerdict::damaged);
        SvgCost cost{.elements = 1};
        // Attributes of other vocabularies may have the same names.
        QStringList identifiers;
        QStringList references;
        bool isDashed = false;
        bool isStroked = false;
        const QXmlStreamAttributes attributes = m_reader.attributes();
        for (const QXmlStreamAttribute& attribute : attributes) {
            const QStringView key = localName(attribute.qualifiedName());
            const QStringView value = attribute.value();
            if (key == u"d" || key == u"points")
                cost.geometry += value.size();
            else if (key == u"id")
                identifiers += value.toString();
            else if (key == u"href")
                references += readReference(name, value.trimmed());
            else if (key == u"stroke-dasharray")
                isDashed = noteDashes(value) || isDashed;
            else if (key == u"viewBox" && m_elementCount == 1)
                noteViewBox(value);
            else if ((key == u"width" || key == u"height") && m_elementCount == 1)
                m_extent = std::max(m_extent, leadingNumber(value));
            else if (key == u"transform")
                m_isScaled = m_isScaled || value.contains(u"scale") || value.contains(u"matrix");
            else if (key == u"stroke")
                isStroked = isStroked || value.trimmed() != u"none";
            else if (key == u"attributeName")
                isStroked = isStroked || value.contains(u"stroke");
            else if (key == u"style")
                isStroked = isStroked || styleStrokes(value);
            if (key == u"opacity" || (key == u"style" && value.contains(u"opacity")))
                cost.elements += opacityLayerCost;
            if (key == u"style" && value.contains(u"stroke-dasharray"))
                isDashed = noteStyleDashes(value) || isDashed;
        }
        if (name == QLatin1StringView("glyph"))
            m_largestGlyph = std::max(m_largestGlyph, cost.geometry);
        cost.points = outlinePoints(name, attributes);
        noteLines(cost, isStroked, isDashed);
        if (name == QLatin1StringView("text") || name == QLatin1StringView("tspan") ||
            name == QLatin1StringView("textArea"))
            cost.texts = 1;
        const int parent = m_open.empty() ? -1 : m_open.back().index;
        m_open.push_back({m_tree.add(parent, cost), name == QLatin1StringView("style")});
        for (const QString& identifier : std::as_const(identifiers))
            m_tree.identify(m_open.back().index, identifier);
        for (const QString& reference : std::as_const(references))
            m_tree.refer(m_open.back().index, {reference});
    }

    void readText() {
        if (m_open.empty())
            return;
        const QStringView text = m_reader.text();
        if (!m_open.back().isStyle) {
            m_tree.own(m_open.back().index).characters += text.trimmed().size();
            return;
        }
        m_styleLength += text.size();
        if (text.contains(u"@import"))
            refuse(SvgVerdict::reachesOutside);
        m_isEverythingStroked = m_isEverythingStroked || styleStrokes(text);
        if (text.contains(u"stroke-dasharray"))
            m_isEverythingDashed = noteStyleDashes(text) || m_isEverythingDashed;
    }

    // The identifier of the element that is meant; none when the renderer follows no such reference.
    QString readReference(const QString& name, QStringView target) {
        if (target.startsWith(u'#'))
            return target.sliced(1).toString();
        if (name == QLatin1StringView("image"))
            readPicture(target);
        // Neither where a link leads nor a color profile is read.
        else if (name != QLatin1StringView("a") && name != QLatin1StringView("color-profile") && !target.isEmpty())
            refuse(SvgVerdict::reachesOutside);
        return {};
    }

    void readPicture(QStringView target) {
        const qsizetype start = target.lastIndexOf(u"base64,");
        if (!target.startsWith(u"data:image/") || start < 0)
            return refuse(SvgVerdict::reachesOutside);
        const QByteArray bytes = QByteArray::fromBase64(target.sliced(start + 7).toLatin1());
        const QByteArray format = pictureFormat(bytes);
        const QSize size =
            format == "png" || format == "jpeg" || format == "webp" ? PictureReader(bytes, format).size() : QSize();
        if (size.isEmpty())
            return refuse(SvgVerdict::pictureTooLarge);
        m_picturePixels += static_cast<qint64>(size.width()) * size.height();
        if (m_picturePixels > picturePixelsLimit)
            refuse(SvgVerdict::pictureTooLarge);
    }

    void noteViewBox(QStringView value) {
        const QStringList numbers = value.toString().replace(u',', u' ').simplified().split(u' ');
        if (numbers.size() == 4)
            m_extent = std::max({m_extent, numbers[2].toDouble(), numbers[3].toDouble()});
    }

    // Whether the value makes dashes at all.
    bool noteDashes(QStringView value) {
        double length = 0;
        for (const QString& number : value.toString().replace(u',', u' ').simplified().split(u' '))
            length += number.toDouble();
        if (value.trimmed() == u"none" || value.trimmed().isEmpty())
            return false;
        m_shortestPattern = std::min(m_shortestPattern, length);
        return true;
    }

    bool noteStyleDashes(QStringView style) {
        bool isDashed = false;
        for (qsizetype at = style.indexOf(u"stroke-dasharray"); at >= 0;
             at = style.indexOf(u"stroke-dasharray", at + 1)) {
            const QStringView rest = style.sliced(at + 16);
            const QStringView value = rest.sliced(std::max<qsizetype>(rest.indexOf(u':') + 1, 0));
            const auto end = std::find_if(value.begin(), value.end(), [](QChar c) { return c == u';' || c == u'}'; });
            isDashed = noteDashes(value.first(end - value.begin())) || isDashed;
        }
        return isDashed;
    }

    // The lines of a group, or of what is no shape at all, may reach whatever is drawn in it.
    void noteLines(SvgCost& cost, bool isStroked, bool isDashed) {
        const bool isShape = cost.points > 0;
        cost.strokedPoints = isStroked && isShape ? cost.points : 0;
        cost.dashedPoints = isDashed && isShape ? cost.points : 0;
        m_isEverythingStroked = m_isEverythingStroked || (isStroked && !isShape);
        m_isEverythingDashed = m_isEverythingDashed || (isDashed && !isShape);
    }

    SvgVerdict weigh() {
        if (m_styleLength * m_elementCount > styleWorkLimit)
            return SvgVerdict::tooHeavy;
        const SvgCostTree::Total total = m_tree.total(costLimit);
        switch (total.problem) {
        case SvgCostTree::Problem::containsItself:
            return SvgVerdict::containsItself;
        case SvgCostTree::Problem::tooDeep:
        case SvgCostTree::Problem::tooHeavy:
            return SvgVerdict::tooHeavy;
        case SvgCostTree::Problem::none:
            break;
        }
        if (total.cost.characters * m_largestGlyph > costLimit.geometry)
            return SvgVerdict::tooHeavy;
        // Each number in a glyph takes two characters or more.
        const qint64 letters = total.cost.characters * std::max(letterPoints, m_largestGlyph / 2);
        if (m_isEverythingStroked && total.cost.points + letters > costLimit.strokedPoints)
            return SvgVerdict::tooHeavy;
        return isDashingWithin(total.cost) ? SvgVerdict::accepted : SvgVerdict::tooManyDashes;
    }

    bool isDashingWithin(const SvgCost& total) const {
        const qint64 points = m_isEverythingDashed ? total.points : total.dashedPoints;
        double dashesPerLine = dashesPerLineLimit;
        if (m_extent > 0 && !m_isScaled && m_shortestPattern > 0)
            dashesPerLine = std::min(dashesPerLine, 3 * m_extent / m_shortestPattern);
        return static_cast<double>(points) * dashesPerLine <= static_cast<double>(dashLimit);
    }

    struct OpenElement {
        int index;
        bool isStyle;
    };

    QXmlStreamReader m_reader;
    SvgVerdict m_verdict = SvgVerdict::accepted;
    SvgCostTree m_tree;
    std::vector<OpenElement> m_open;
    qint64 m_elementCount = 0;
    qint64 m_styleLength = 0;
    qint64 m_picturePixels = 0;
    qint64 m_largestGlyph = 0;
    double m_extent = 0;
    double m_shortestPattern = std::numeric_limits<double>::max();
    bool m_isScaled = false;
    bool m_isEverythingStroked = false;
    bool m_isEverythingDashed = false;
};

} // namespace

SvgVerdict SvgGuard::check(const QByteArray& bytes) {
    if (bytes.size() > byteLimit)
        return SvgVerdict::tooLarge;
    return Reading(bytes).verdict();
}

} // namespace zelmo
