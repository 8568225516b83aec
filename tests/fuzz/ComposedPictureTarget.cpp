#include "fuzz/FuzzTarget.h"
#include "platform/linux/icons/SvgPicture.h"

#include <array>
#include <span>

using namespace zelmo;

namespace {

constexpr std::array elements{"g",
                              "use",
                              "path",
                              "rect",
                              "circle",
                              "ellipse",
                              "line",
                              "polyline",
                              "polygon",
                              "text",
                              "tspan",
                              "textArea",
                              "tbreak",
                              "defs",
                              "linearGradient",
                              "radialGradient",
                              "stop",
                              "image",
                              "style",
                              "font",
                              "glyph",
                              "font-face",
                              "a",
                              "switch",
                              "animate",
                              "solidColor",
                              "set",
                              "animateTransform",
                              "svg",
                              "animateColor",
                              "missing-glyph",
                              "symbol",
                              "mask",
                              "clipPath",
                              "pattern",
                              "marker",
                              "filter",
                              "feBlend",
                              "feColorMatrix",
                              "feComponentTransfer",
                              "feComposite",
                              "feConvolveMatrix",
                              "feDiffuseLighting",
                              "feDisplacementMap",
                              "feDropShadow",
                              "feFlood",
                              "feFuncA",
                              "feGaussianBlur",
                              "feImage",
                              "feMerge",
                              "feMergeNode",
                              "feMorphology",
                              "feOffset",
                              "fePointLight",
                              "feSpecularLighting",
                              "feTile",
                              "feTurbulence"};
constexpr std::array attributes{"id",
                                "xlink:href",
                                "fill",
                                "stroke",
                                "stroke-width",
                                "stroke-dasharray",
                                "stroke-dashoffset",
                                "stroke-linecap",
                                "stroke-linejoin",
                                "stroke-miterlimit",
                                "vector-effect",
                                "transform",
                                "gradientTransform",
                                "gradientUnits",
                                "spreadMethod",
                                "style",
                                "class",
                                "opacity",
                                "fill-opacity",
                                "stroke-opacity",
                                "display",
                                "visibility",
                                "fill-rule",
                                "font-family",
                                "font-size",
                                "font-weight",
                                "text-anchor",
                                "x",
                                "y",
                                "x1",
                                "y1",
                                "x2",
                                "y2",
                                "cx",
                                "cy",
                                "r",
                                "rx",
                                "ry",
                                "fx",
                                "fy",
                                "width",
                                "height",
                                "viewBox",
                                "points",
                                "d",
                                "offset",
                                "stop-color",
                                "stop-opacity",
                                "attributeName",
                                "from",
                                "to",
                                "values",
                                "type",
                                "dur",
                                "begin",
                                "repeatCount",
                                "unicode",
                                "horiz-adv-x",
                                "units-per-em",
                                "xml:space",
                                "color",
                                "clip-path",
                                "solid-color",
                                "letter-spacing",
                                "mask",
                                "filter",
                                "marker",
                                "marker-mid",
                                "mix-blend-mode",
                                "isolation",
                                "overflow",
                                "clip-rule",
                                "preserveAspectRatio",
                                "clipPathUnits",
                                "maskUnits",
                                "maskContentUnits",
                                "patternUnits",
                                "patternContentUnits",
                                "patternTransform",
                                "filterUnits",
                                "primitiveUnits",
                                "markerUnits",
                                "markerWidth",
                                "markerHeight",
                                "refX",
                                "orient",
                                "in",
                                "in2",
                                "result",
                                "mode",
                                "operator",
                                "k1",
                                "dx",
                                "stdDeviation",
                                "tableValues",
                                "surfaceScale",
                                "z",
                                "href"};
constexpr std::array values{
    "a",
    "b",
    "#a",
    "#b",
    "url(#a)",
    "url(#b)",
    "red",
    "none",
    "currentColor",
    "inherit",
    "round",
    "bevel",
    "square",
    "non-scaling-stroke",
    "userSpaceOnUse",
    "repeat",
    "reflect",
    "evenodd",
    "middle",
    "preserve",
    "transform",
    "rotate",
    "scale",
    "indefinite",
    "1s",
    ".1s;2s",
    "0;1;2",
    "50%",
    "9e9",
    "1e-9",
    "-1",
    "0",
    "1",
    "3",
    "9",
    "100",
    "1e38",
    "1e309",
    "nan",
    "0.001",
    ".05 .05",
    "1 2",
    "0 0 9 9",
    "0 0 1e9 1e-9",
    "-9 -9 1e-9 1e9",
    "0,0 9,9 0,9",
    "M0 0h9v9z",
    "M0 0C1 1 2 2 3 3S4 4 5 5Q1 2 3 4T5 6A1 2 3 0 1 4 5z",
    "M0 0a1e9,1e9 0 1 1 1 1",
    "M-1e9-1e9L1e9 1e9L1e9-1e9z",
    "M0 0L1e-30 1e-30z",
    "M1e38 0L-1e38 1e38z",
    "scale(9e9)",
    "scale(0)",
    "matrix(1 2 3 4 5 6)",
    "rotate(45)skewX(89.999)translate(1,2)",
    "matrix(1e20 0 0 1e-20 0 0)",
    "fill:red;stroke:blue;stroke-width:3",
    "stroke-dasharray:.01;stroke:red",
    "opacity:.5",
    "hsl(1,2,3)",
    "rgb(1%,2%,3%)",
    "serif",
    "objectBoundingBox",
    "strokeWidth",
    "auto",
    "SourceGraphic",
    "SourceAlpha",
    "multiply",
    "arithmetic",
    "gamma",
    "visible",
    "none slice",
    "context-stroke",
    "blur(9) url(#a)",
    "drop-shadow(1 2 3)",
    "mask:url(#a);clip-path:url(#b);filter:url(#a)",
    "marker:url(#b);fill:url(#a);mix-blend-mode:screen",
    "30 0 0 30 0",
    "data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAQAAAC1HAwCAAAAC0lEQVR42mNkYAAAAAYAAjCB0C8AAAAA"
    "SUVORK5CYII="};

// Turns bytes into a picture that is well formed, whatever they are: one byte opens, closes, adds an attribute or a
// text; the next one says which. Most bytes that a fuzzer makes up are no XML at all and never reach the renderer.
class Composer {
public:
    explicit Composer(std::span<const std::uint8_t> bytes) : m_rest(bytes) {}

    QByteArray picture() {
        while (!m_rest.empty())
            step();
        endTag();
        while (!m_open.isEmpty())
            close();
        return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' viewBox='0 0 9 9'>" +
               m_text + "</svg>";
    }

private:
    std::uint8_t next() {
        if (m_rest.empty())
            return 0;
        const std::uint8_t byte = m_rest.front();
        m_rest = m_rest.subspan(1);
        return byte;
    }

    void step() {
        const std::uint8_t kind = next();
        if (kind < 64) {
            endTag();
            m_open.append(elements[kind % elements.size()]);
            m_text += '<' + m_open.last();
            m_isInTag = true;
            m_used.clear();
        } else if (kind < 192) {
            addAttribute(attributes[kind % attributes.size()]);
        } else if (kind < 224) {
            endTag();
            close();
        } else {
            endTag();
            m_text +=
                kind < 240 ? "ab c" : "rect,#b{fill:red;stroke:blue;stroke-dasharray:.1}.a{mask:url(#a);fill:url(#b)}";
        }
    }

    void addAttribute(const char* name) {
        const char* value = values[next() % values.size()];
        if (!m_isInTag || m_used.contains(name))
            return;
        m_used.append(name);
        m_text += ' ' + QByteArray(name) + "='" + value + '\'';
    }

    void endTag() {
        if (m_isInTag)
            m_text += '>';
        m_isInTag = false;
    }
    void close() {
        if (!m_open.isEmpty())
            m_text += "</" + m_open.takeLast() + '>';
    }

    std::span<const std::uint8_t> m_rest;
    QByteArray m_text;
    QList<QByteArray> m_open;
    QList<QByteArray> m_used; // attributes of the open tag
    bool m_isInTag = false;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray picture = Composer({data, size}).picture();
    if (qEnvironmentVariableIsSet("ZELMO_SHOW_INPUT"))
        std::fprintf(stderr, "%s\n", picture.constData());
    SvgPicture::render(picture, 104);
    return 0;
}
