#include "platform/linux/icons/SvgEffects.h"

#include "platform/linux/icons/PictureFormat.h"
#include "platform/linux/icons/SvgEffectText.h"
#include "platform/linux/icons/SvgLineWidth.h"
#include "platform/linux/icons/SvgStyle.h"

#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zelmo {

namespace {

constexpr qint64 unlimited = std::numeric_limits<qint64>::max();
// A crossing takes up to thirty nanoseconds, a character of text may need a font of its own.
constexpr SvgCost costLimit{.elements = 20'000,
                            .geometry = unlimited,
                            .characters = 400,
                            .texts = unlimited,
                            .points = 512 * 1024,
                            .strokedPoints = unlimited,
                            .dashedPoints = unlimited,
                            .outlines = 20'000,
                            .crossings = 40'000'000,
                            .paint = 1'000'000,
                            .enlargement = std::numeric_limits<double>::infinity()};
constexpr qint64 paintLimit = 640'000'000; // nanoseconds for the whole picture
constexpr qint64 pointsOfSimpleShape = 16;
constexpr qint64 sidesOfSimpleShape = 4;
constexpr qint64 paintOfShape = 1;
constexpr qint64 paintOfFilledShape = 4; // with a gradient or a pattern
constexpr qint64 paintOfText = 20;
constexpr qint64 paintOfPattern = 700; // repeating a small tile is slow
constexpr qint64 pointsOfCharacter = 30;
constexpr qint64 charactersOfTextElement = 8;
constexpr qint64 picturePixelsPerCrossing = 3;
constexpr double dashLimit = 5'000; // of an outline

bool isOneOf(QStringView name, std::initializer_list<QStringView> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

QStringView localName(QStringView name) {
    return name.sliced(name.lastIndexOf(u':') + 1);
}

bool isShape(QStringView name) {
    return isOneOf(name, {u"path", u"rect", u"circle", u"ellipse", u"line", u"polyline", u"polygon"});
}

} // namespace

// One reading of one picture.
class SvgEffects::Reading {
public:
    explicit Reading(const QByteArray& bytes) : m_reader(bytes) { m_reader.setNamespaceProcessing(false); }

    SvgEffects effects() {
        while (!m_reader.atEnd()) {
            m_reader.readNext();
            if (m_reader.isStartDocument())
                readEncoding(m_reader.documentEncoding());
            else if (m_reader.isStartElement())
                openElement();
            else if (m_reader.isEndElement())
                closeElement();
            else if (m_reader.isCharacters())
                readText();
        }
        m_isClear = m_isClear && !m_reader.hasError();
        applyStyleSheet();
        if (!std::isinf(m_shortestDashes))
            addDashes();
        for (const QString& target : std::as_const(m_givenUnits))
            m_effects.m_areWanted = m_effects.m_areWanted || m_unitsInUserSpace.contains(target);
        if (m_effects.m_areWanted && m_isClear && isPatternBounded())
            weigh();
        return m_effects;
    }

private:
    struct OpenElement {
        int index;
        bool isStyle;
        bool isText;
        QString sheet;
    };
    struct Drawn {
        int index;
        bool isShape;
        SvgOutline outline;
        QString classes;
        bool isDashed = false;
    };

    void readEncoding(QStringView encoding) {
        m_isClear = m_isClear && (encoding.isEmpty() || encoding.compare(u"utf-8", Qt::CaseInsensitive) == 0);
    }

    void openElement() {
        const QStringView name = localName(m_reader.qualifiedName());
        const QXmlStreamAttributes attributes = m_reader.attributes();
        const bool isRoot = m_open.empty();
        SvgDeclarations declarations;
        SvgCost cost{.elements = 1};
        QStringList identifiers;
        QStringList references;
        QString classes;
        SvgOutline outline;
        for (const QXmlStreamAttribute& attribute : attributes) {
            const QStringView key = localName(attribute.qualifiedName());
            const QStringView value = attribute.value();
            if (key == u"id")
                identifiers += value.toString();
            else if (key == u"class")
                classes += u' ' + value.toString();
            else if (key == u"href")
                references += value.trimmed().toString();
            else if (key == u"style")
                declarations.declareStyle(value);
            else if (key == u"viewBox")
                readViewBox(value, isRoot);
            else if (key == u"patternContentUnits" || key == u"maskContentUnits")
                m_isScaled = m_isScaled || value != u"userSpaceOnUse";
            else
                declarations.declare(key, value);
            if (isShape(name) && isOneOf(key, {u"d", u"points", u"x", u"y", u"x1", u"x2", u"y1", u"y2", u"width",
                                               u"height", u"r", u"rx", u"ry", u"cx", u"cy"})) {
                const bool isDescription = key == u"d" || key == u"points";
                const SvgOutline found =
                    isDescription ? SvgOutline::ofDescription(value) : SvgOutline::ofMeasure(value);
                outline = {outline.points + found.points, std::max(outline.length, found.length)};
            }
        }
        if (isShape(name)) {
            cost.outlines = 1;
            const bool isSimple = name != u"path" && !name.startsWith(u"poly");
            if (isSimple)
                outline.points = sidesOfSimpleShape;
            cost.points = std::max(outline.points, isSimple ? pointsOfSimpleShape : 1);
            cost.crossings = cost.points * cost.points;
        }
        readKind(name, attributes, isRoot, cost);
        cost.paint += isShape(name) ? paintOfShape : 0;
        const int parent = isRoot ? -1 : m_open.back().index;
        const int index = m_tree.add(parent, cost);
        for (const QString& identifier : std::as_const(identifiers))
            m_tree.identify(index, identifier);
        for (const QString& reference : std::as_const(references)) {
            if (reference.startsWith(u'#'))
                m_tree.refer(index, {reference.sliced(1)});
            else if (name == u"image")
                m_tree.own(index).crossings += readPicture(reference) / picturePixelsPerCrossing;
        }
        readGradient(name, attributes);
        m_lines.readElement(index, name, attributes);
        m_drawn.push_back({index, isShape(name), outline, classes});
        apply(declarations, m_drawn.back());
        const bool isText = name == u"text" || (!isRoot && m_open.back().isText);
        m_open.push_back({index, name == u"style", isText, {}});
    }

    void closeElement() {
        if (m_open.back().isStyle)
            m_sheet.read(m_open.back().sheet);
        m_open.pop_back();
    }

    void readText() {
        if (m_open.empty())
            return;
        if (m_open.back().isStyle)
            m_open.back().sheet += m_reader.text();
        else if (m_open.back().isText)
            countCharacters(m_tree.own(m_open.back().index), m_reader.text().trimmed().size());
    }

    static void countCharacters(SvgCost& cost, qint64 count) {
        const qint64 points = count * pointsOfCharacter;
        cost.characters += count;
        cost.outlines += count;
        cost.points += points;
        cost.crossings += points * points;
    }

    void readKind(QStringView name, const QXmlStreamAttributes& attributes, bool isRoot, SvgCost& cost) {
        if (name.startsWith(QLatin1StringView("fe"))) {
            const std::optional<qint64> part = svgFilterPartCost(name);
            m_isClear = m_isClear && part;
            cost.paint += part.value_or(0);
        } else if (name == u"pattern") {
            m_effects.m_areWanted = true;
            cost.paint += paintOfPattern;
            readPattern(attributes);
        } else if (name == u"marker") {
            m_isScaled = true;
        } else if (name == u"symbol" || (name == u"svg" && !isRoot)) {
            m_effects.m_areWanted = true;
        } else if (name == u"text" || name == u"tspan") {
            m_effects.m_areWanted = true;
            m_hasText = true;
            countCharacters(cost, charactersOfTextElement);
            cost.paint += paintOfText;
        } else if (name == u"image") {
            cost.paint += paintOfText;
        } else if (name == u"include") {
            m_isClear = false;
        }
    }

    void readViewBox(QStringView value, bool isRoot) {
        const auto numbers = value.split(u' ');
        bool areNumbers[2] = {};
        const double width = numbers.size() == 4 ? numbers[2].toDouble(&areNumbers[0]) : 0;
        const double height = numbers.size() == 4 ? numbers[3].toDouble(&areNumbers[1]) : 0;
        if (isRoot && areNumbers[0] && areNumbers[1])
            m_extent = std::max(width, height);
        else
            m_isScaled = true;
    }

    void readPattern(const QXmlStreamAttributes& attributes) {
        m_hasPattern = true;
        m_isPatternInUserSpace =
            m_isPatternInUserSpace && attributes.value(QLatin1StringView("patternUnits")) == u"userSpaceOnUse";
        SvgDeclarations transform;
        transform.declare(u"transform", attributes.value(QLatin1StringView("patternTransform")));
        m_isScaled = m_isScaled || transform.areScaling;
        for (const char* side : {"width", "height"}) {
            bool isNumber = false;
            const double length = attributes.value(QLatin1StringView(side)).toDouble(&isNumber);
            if (!isNumber)
                m_isPatternInUserSpace = false;
            m_largestTile = std::max(m_largestTile, length);
        }
    }

    // A gradient may have its units from the one that it refers to.
    void readGradient(QStringView name, const QXmlStreamAttributes& attributes) {
        if (name != u"linearGradient" && name != u"radialGradient")
            return;
        const QStringView units = attributes.value(QLatin1StringView("gradientUnits"));
        if (units == u"userSpaceOnUse")
            m_unitsInUserSpace.insert(u'#' + attributes.value(QLatin1StringView("id")).toString());
        else if (units.isEmpty()) {
            for (const char* key : {"href", "xlink:href"})
                m_givenUnits.insert(attributes.value(QLatin1StringView(key)).toString());
        }
    }

    // In pixels. Where its bytes start must be beyond doubt.
    qint64 readPicture(const QString& address) {
        if (address.isEmpty())
            return 0;
        const qsizetype comma = address.indexOf(u',');
        const QStringView head = QStringView(address).first(std::max<qsizetype>(comma, 0));
        if (!isOneOf(head, {u"data:image/png;base64", u"data:image/jpeg;base64", u"data:image/jpg;base64",
                            u"data:image/webp;base64"}) ||
            address.indexOf(u',', comma + 1) >= 0) {
            m_isClear = false;
            return 0;
        }
        const QByteArray bytes = QByteArray::fromBase64(QStringView(address).sliced(comma + 1).toLatin1());
        const QSize size = PictureReader(bytes, pictureFormat(bytes)).size();
        return static_cast<qint64>(size.width()) * size.height();
    }

    void apply(const SvgDeclarations& declarations, Drawn& element) {
        m_effects.m_areWanted = m_effects.m_areWanted || declarations.areEffects;
        m_isClear = m_isClear && declarations.areClear;
        noteDashes(declarations, &element);
        m_isScaled = m_isScaled || declarations.areScaling;
        m_lines.apply(element.index, declarations);
        SvgCost& own = m_tree.own(element.index);
        own.paint += declarations.paint;
        if (element.isShape && !declarations.paints.empty())
            own.paint += paintOfFilledShape - paintOfShape;
        for (const SvgReference& reference : declarations.references)
            m_tree.refer(element.index, reference);
        // Elements in this one have them too, nobody knows how often.
        m_isPaintInherited = m_isPaintInherited || (!element.isShape && !declarations.paints.empty());
        m_isClear = m_isClear && (element.isShape || declarations.markers.empty());
        for (const QString& target : declarations.paints)
            m_tree.refer(element.index, {target});
        for (const QString& target : declarations.markers)
            m_tree.refer(element.index, {target, SvgReference::Kind::drawn, element.outline.points});
    }

    void applyStyleSheet() {
        for (Drawn& element : m_drawn)
            apply(m_sheet.ofClasses(element.classes), element);
        const SvgDeclarations& others = m_sheet.others();
        m_effects.m_areWanted = m_effects.m_areWanted || others.areEffects;
        m_isPaintInherited = m_isPaintInherited || !others.paints.empty();
        noteDashes(others, nullptr);
        m_isScaled = m_isScaled || others.areScaling;
        m_lines.applyToAll(others);
        m_isClear =
            m_isClear && others.areClear && others.references.empty() && others.markers.empty() && others.paint == 0;
    }

    // A tile is drawn as large as it would be on the picture, however little of it is seen.
    bool isPatternBounded() const {
        return !m_hasPattern ||
               (m_isPatternInUserSpace && !m_isPaintInherited && !m_isScaled && m_largestTile <= m_extent);
    }

    void noteDashes(const SvgDeclarations& declarations, Drawn* element) {
        if (std::isinf(declarations.dashes))
            return;
        m_shortestDashes = std::min(m_shortestDashes, declarations.dashes);
        if (element && element->isShape)
            element->isDashed = true;
        else
            m_areDashesInherited = true;
    }

    // Dashes that nobody sees are made too. How long the outlines of letters are nobody knows.
    void addDashes() {
        m_isClear = m_isClear && !m_hasText;
        for (const Drawn& element : m_drawn) {
            if (!element.isShape || (!element.isDashed && !m_areDashesInherited))
                continue;
            const double dashes = element.outline.length / m_shortestDashes;
            m_isClear = m_isClear && dashes <= dashLimit;
            if (dashes <= dashLimit)
                m_tree.own(element.index).crossings += static_cast<qint64>(dashes * dashes);
        }
    }

    void weigh() {
        m_lines.enlarge(m_tree);
        const SvgCostTree::Total total = m_tree.total(costLimit);
        if (total.problem == SvgCostTree::Problem::none && m_lines.isBounded(total.cost.enlargement))
            m_effects.m_paint = total.cost.paint;
    }

    QXmlStreamReader m_reader;
    SvgEffects m_effects;
    SvgCostTree m_tree;
    SvgStyleSheet m_sheet;
    SvgLineWidth m_lines;
    std::vector<OpenElement> m_open;
    std::vector<Drawn> m_drawn;
    QSet<QString> m_unitsInUserSpace; // gradients that say so
    QSet<QString> m_givenUnits;       // gradients that others may have them from
    double m_extent = 0;
    double m_shortestDashes = std::numeric_limits<double>::infinity();
    double m_largestTile = 0;
    bool m_isClear = true;
    bool m_areDashesInherited = false;
    bool m_isScaled = false;
    bool m_hasPattern = false;
    bool m_hasText = false;
    bool m_isPatternInUserSpace = true;
    bool m_isPaintInherited = false;
};

SvgEffects SvgEffects::read(const QByteArray& bytes) {
    if (!mayHaveSvgEffects(bytes) || !isPlainSvgText(bytes))
        return {};
    return Reading(bytes).effects();
}

bool SvgEffects::canBeDrawn(int pixels) const {
    return m_areWanted && m_paint && *m_paint * pixels * pixels <= paintLimit;
}

} // namespace zelmo
