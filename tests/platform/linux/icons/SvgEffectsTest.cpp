#include "IconTestFiles.h"

#include "platform/linux/icons/IconFileDecoder.h"
#include "platform/linux/icons/SvgEffects.h"
#include "platform/linux/icons/SvgGuard.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

#include <array>
#include <latch>
#include <thread>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr QRgb red = 0xFFFF0000;
constexpr QRgb green = 0xFF00FF00;
constexpr QRgb blue = 0xFF0000FF;
constexpr QRgb nothing = 0;

const QByteArray redSquare = "<rect width='100' height='100' fill='#f00'/>";

// As many drawing programs write it: the mask is a black square that a filter makes white.
QByteArray maskedByAFilteredGroup() {
    return svg("<filter id='white' x='0%' y='0%' width='100%' height='100%'><feColorMatrix in='SourceGraphic' "
               "type='matrix' values='0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 0 0 0 1 0'/></filter>"
               "<mask id='half'><g filter='url(#white)'><rect x='25' y='25' width='50' height='50'/></g></mask>"
               "<g mask='url(#half)'>" +
               redSquare + "</g>");
}

// Each level masks ten outlines by the level below it.
QByteArray nestedMasks(int levels, const QByteArray& attribute) {
    QByteArray body = "<mask id='m0'><rect width='100' height='100' fill='#fff'/></mask>";
    for (int level = 1; level <= levels; ++level) {
        const QByteArray target = "#m" + QByteArray::number(level - 1);
        const QByteArray outline =
            "<rect width='99' height='99' fill='#fff' " + QByteArray(attribute).replace("#", target) + "/>";
        body += "<mask id='m" + QByteArray::number(level) + "'>" + outline.repeated(10) + "</mask>";
    }
    return svg(body + "<g mask='url(#m" + QByteArray::number(levels) + ")'>" + redSquare + "</g>");
}

QByteArray filtered(const QByteArray& parts) {
    return svg("<filter id='f'>" + parts + "</filter><g filter='url(#f)'>" + redSquare + "</g>");
}

QByteArray zigzag(int lines) {
    return "M0 0" + QByteArray("L100 90L0 10").repeated(lines / 2);
}

bool isLibraryLoaded() {
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("librsvg");
}

} // namespace

class SvgEffectsTest : public QObject {
    Q_OBJECT

    // Runs one of the functions below in a process of its own, which has loaded no library yet.
    static void runAlone(const char* function, const QByteArray& libraryPath = {}) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("SVG_EFFECTS_TEST_ALONE"), QStringLiteral("1"));
        if (!libraryPath.isEmpty())
            environment.insert(QStringLiteral("LD_LIBRARY_PATH"), QFile::decodeName(libraryPath));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(function)});
        QVERIFY(process.waitForFinished());
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                 process.readAll().constData());
    }
    static bool isAlone() { return qEnvironmentVariableIsSet("SVG_EFFECTS_TEST_ALONE"); }

private Q_SLOTS:
    void effectsAreDrawn_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QRgb>("centre");
        QTest::addColumn<QRgb>("corner");
        const auto row = [](const char* name, const QByteArray& bytes, QRgb centre = red, QRgb corner = nothing) {
            QTest::newRow(name) << bytes << centre << corner;
        };
        const QByteArray box = "<rect x='25' y='25' width='50' height='50'/>";
        row("mask of a filtered group", maskedByAFilteredGroup());
        row("clip path", svg("<clipPath id='c'>" + box + "</clipPath><g clip-path='url(#c)'>" + redSquare + "</g>"));
        row("clip path by style", svg("<clipPath id='c'>" + box +
                                      "</clipPath><g style='opacity:1; clip-path : url(\"#c\")"
                                      " '>" +
                                      redSquare + "</g>"));
        row("clip path by class",
            svg("<style>.a, .b{fill:#f00} /* of the box */ .a{clip-path:url(#c)}</style><clipPath "
                "id='c'>" +
                box + "</clipPath><rect class='b a' width='100' height='100'/>"));
        row("mask of a gradient",
            svg("<radialGradient id='g' r='.5'><stop offset='.4' stop-color='#fff'/><stop "
                "offset='.5'/></radialGradient>"
                "<mask id='m'><rect width='100' height='100' fill='url(#g)'/></mask><g mask='url(#m)'>" +
                redSquare + "</g>"));
        row("filter",
            filtered("<feFlood flood-color='#00f' x='20' y='20' width='60' height='60'/>"
                     "<feComposite in2='SourceAlpha' operator='in'/>"),
            blue, nothing);
        row("pattern",
            svg("<pattern id='p' patternUnits='userSpaceOnUse' width='40' height='40'><rect x='5' y='5' width='10' "
                "height='10' fill='#f00'/></pattern><rect width='100' height='100' fill='url(#p)'/>"));
        row("marker", svg("<marker id='m' viewBox='0 0 10 10' refX='5' refY='5' markerWidth='30' markerHeight='30' "
                          "markerUnits='userSpaceOnUse'><rect width='10' height='10' fill='#f00'/></marker>"
                          "<path d='M0 50H50H100' marker-mid='url(#m)'/>"));
        row("symbol", svg("<symbol id='s' viewBox='0 0 10 10'><rect width='10' height='10' fill='#f00'/></symbol>"
                          "<use xlink:href='#s' x='25' y='25' width='50' height='50'/>"));
        row("clipped picture",
            svg("<clipPath id='c'>" + box + "</clipPath><image width='100' height='100' clip-path='url(#c)' " +
                "xlink:href='data:image/png;base64," + png(10, 10, red).toBase64() + "'/>"));
        row("blend mode",
            svg(redSquare + "<rect x='25' y='25' width='50' height='50' fill='#0f0' "
                            "style='mix-blend-mode:multiply'/>"),
            0xFF000000, red);
        row("units of another gradient",
            svg("<linearGradient id='a' gradientUnits='userSpaceOnUse'><stop offset='.2' stop-color='#0f0'/><stop "
                "offset='.3' stop-color='#f00'/></linearGradient><linearGradient id='b' x1='0' y1='0' x2='100' y2='0' "
                "xlink:href='#a'/>"
                "<rect width='100' height='100' fill='url(#b)'/>"),
            red, green);
        row("without a view box", svg("<clipPath id='c'><rect x='5' y='5' width='10' height='10'/></clipPath>"
                                      "<rect width='20' height='20' fill='#f00' clip-path='url(#c)'/>",
                                      "width='20' height='20'"));
        row("with another size",
            svg("<clipPath id='c'>" + box + "</clipPath><g clip-path='url(#c)'>" + redSquare + "</g>",
                "width='16' height='16' viewBox='0 0 100 100'"));
        row("dashes on large coordinates",
            svg("<clipPath id='c'>" + box +
                "</clipPath><g clip-path='url(#c)'><g transform='scale(.5)'><path d='M0 "
                "100H200' stroke='#f00' stroke-width='200' stroke-dasharray='150 50'/></g></g>"));
    }
    void effectsAreDrawn() {
        QFETCH(QByteArray, bytes);
        QFETCH(QRgb, centre);
        QFETCH(QRgb, corner);
        QCOMPARE(SvgGuard::check(bytes), SvgVerdict::accepted);
        const QImage image = IconFileDecoder::decode(bytes, 100);
        QCOMPARE(image.format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(image.pixel(50, 50), centre);
        QCOMPARE(image.pixel(2, 2), corner);
        QVERIFY(image.pixel(97, 97) != image.pixel(50, 50) || corner == green);
    }

    void aspectIsKeptAndCentred_data() {
        QTest::addColumn<QByteArray>("attributes");
        QTest::newRow("view box") << QByteArray("viewBox='0 0 40 20'");
        QTest::newRow("size") << QByteArray("width='40' height='20'");
        QTest::newRow("both") << QByteArray("width='40' height='40' viewBox='0 0 40 20'");
    }
    void aspectIsKeptAndCentred() {
        QFETCH(QByteArray, attributes);
        const QByteArray body = "<clipPath id='c'><rect width='20' height='20'/></clipPath>"
                                "<rect width='40' height='20' fill='#f00' clip-path='url(#c)'/>";
        const QImage image = IconFileDecoder::decode(svg(body, attributes), 80);
        QCOMPARE(image.size(), QSize(80, 80));
        QCOMPARE(image.pixel(20, 18), nothing);
        QCOMPARE(image.pixel(1, 22), red);
        QCOMPARE(image.pixel(38, 58), red);
        QCOMPARE(image.pixel(42, 40), nothing);
        QCOMPARE(image.pixel(20, 62), nothing);
    }

    void plainPicturesWantNoEffects_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("outlines") << svg(redSquare + "<g opacity='.5'><path d='M0 0h9v9z'/></g>");
        QTest::newRow("gradient") << svg("<linearGradient id='a'/><linearGradient id='b' xlink:href='#a' "
                                         "gradientUnits='userSpaceOnUse'/><rect fill='url(#b)'/>");
        QTest::newRow("effects of none") << svg("<g mask='none' style='filter:none;clip-path:none;marker:none;"
                                                "mix-blend-mode:normal'/>");
        QTest::newRow("effects that are not used") << svg("<mask id='m'/><filter id='f'/><clipPath id='c'/>");
        QTest::newRow("classes") << svg("<style>.a{color:#f00;fill:currentColor}</style><g class='a'/>");
    }
    void plainPicturesWantNoEffects() {
        QFETCH(QByteArray, bytes);
        QVERIFY(!SvgEffects::read(bytes).areWanted());
    }

    // They are drawn without their effects.
    void effectsBeyondTheLimitsAreNotDrawn_data() {
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char* name, const QByteArray& bytes) { QTest::newRow(name) << bytes; };
        row("masks beyond counting", nestedMasks(30, "mask='url(#)'"));
        row("masks beyond counting, by style", nestedMasks(30, "style='mask:url(#)'"));
        row("masks beyond counting, by clip path", nestedMasks(5, "mask='url(#)' clip-path='url(#)'"));
        row("masks beyond counting, with misleading names",
            nestedMasks(30, "mask='url(#)'").replace("'><rect", "' x:id='a'><rect"));
        row("mask of itself", svg("<mask id='m'><g mask='url(#m)'/></mask><g mask='url(#m)'>" + redSquare + "</g>"));
        row("mask of each element",
            svg("<style>*{mask:url(#m)}</style><mask id='m'>" + redSquare + "</mask>" + redSquare));
        row("mask of an unclear class",
            svg("<style>.a .b{mask:url(#m)}</style><mask id='m'>" + redSquare + "</mask>" + redSquare));
        row("class in an unclear sheet", svg("<style>.a{mask:url(#m);x:'/*'}/**/</style><mask id='m'>" + redSquare +
                                             "</mask><g class='a'>" + redSquare + "</g>"));
        row("inherited mask",
            svg("<mask id='m'>" + redSquare + "</mask><g mask='url(#m)'><g mask='inherit'>" + redSquare + "</g></g>"));
        row("mask in another file", svg("<g mask='url(/etc/passwd#m)'>" + redSquare + "</g>"));
        row("filter in another file", svg("<g style='filter:url(file:///etc/passwd#m)'>" + redSquare + "</g>"));
        row("many filters",
            svg("<filter id='f'>" + QByteArray("<feGaussianBlur stdDeviation='9'/>").repeated(20) + "</filter>" +
                QByteArray("<rect filter='url(#f)' width='9' height='9'/>").repeated(20)));
        row("many filter functions",
            svg("<g style='filter:" + QByteArray("blur(9px) ").repeated(500) + "'>" + redSquare + "</g>"));
        row("wide morphology", filtered("<feMorphology radius='1000'/>"));
        row("large convolution", filtered("<feConvolveMatrix order='99'/>"));
        row("deep turbulence", filtered("<feTurbulence numOctaves='99999'/>"));
        row("picture in a filter", filtered("<feImage xlink:href='#f'/>"));
        row("large tile", svg("<pattern id='p' patternUnits='userSpaceOnUse' width='9999' height='9999'>" + redSquare +
                              "</pattern><rect fill='url(#p)' width='100' height='100'/>"));
        row("large tile by scaling",
            svg("<pattern id='p' patternUnits='userSpaceOnUse' width='99' height='99'>" + redSquare +
                "</pattern><rect fill='url(#p)' width='100' height='100' transform='scale(100)'/>"));
        row("large tile by style",
            svg("<pattern id='p' patternUnits='userSpaceOnUse' width='99' height='99'>" + redSquare +
                "</pattern><rect fill='url(#p)' width='100' height='100' style='transform:scale(100)'/>"));
        row("tile of an outline",
            svg("<pattern id='p' width='1' height='1'>" + redSquare + "</pattern><rect fill='url(#p)' width='1e5'/>"));
        row("many markers", svg("<marker id='m'>" + redSquare.repeated(500) +
                                "</marker><path marker-mid='url(#m)' d='" + zigzag(1000) + "'/>"));
        row("inherited markers",
            svg("<marker id='m'>" + redSquare + "</marker><g marker-mid='url(#m)'><path d='M0 0h9v9'/></g>"));
        row("crossing clip paths",
            svg("<clipPath id='c'><path d='" + zigzag(1000) + "'/></clipPath><g clip-path='url(#c)'>" +
                QByteArray("<path d='" + zigzag(20) + "'/>").repeated(100) + "</g>"));
        row("nested clip paths",
            svg("<clipPath id='c'><path d='" + zigzag(600) + "'/></clipPath>" +
                QByteArray("<g clip-path='url(#c)'>").repeated(20) + redSquare + QByteArray("</g>").repeated(20)));
        row("long outline", svg("<clipPath id='c'/><path clip-path='url(#c)' d='" + zigzag(10'000) + "'/>"));
        row("fine dashes", svg("<clipPath id='c'/><path clip-path='url(#c)' stroke='red' stroke-dasharray='.01' "
                               "d='M0 0L90 90'/>"));
        row("long dashed line", svg("<clipPath id='c'/><path clip-path='url(#c)' stroke='red' stroke-dasharray='1' "
                                    "d='M0 0L1e9 1e9'/>"));
        row("long dashed line in a group",
            svg("<clipPath id='c'/><g clip-path='url(#c)' stroke='red' style='stroke-dasharray:1'><path d='M0 "
                "0L99999 0'/></g>"));
        row("many markers on a part that is closed again and again",
            svg("<marker id='m'>" + redSquare.repeated(10) + "</marker><path marker-mid='url(#m)' d='M0 0" +
                QByteArray("z").repeated(3000) + "'/>"));
        const auto dashed = [&row](const char* name, const QByteArray& shape) {
            row(name,
                svg("<clipPath id='c'/><g clip-path='url(#c)' stroke='red' stroke-dasharray='20'>" + shape + "</g>"));
        };
        dashed("dashes around a part of what is seen", "<rect width='100%' height='100%'/>");
        dashed("dashes around a part of the letters' size", "<rect width='9em' height='9'/>");
        dashed("dashes to where a part is closed from afar",
               "<path d='M0 0" + QByteArray("m100 0").repeated(20) + QByteArray("L0 0z").repeated(100) + "'/>");
        dashed("dashes along curves that swing up", "<path d='M0 0T9 9T0 0'/>");
        dashed("dashes of a scale of their own", "<path d='M0 0h9' vector-effect='non-scaling-stroke'/>");
        dashed("dashes in parts of a length", "<path d='M0 0h9' pathLength='1000000'/>");
        dashed("dashed text", "<text>a</text>");
        const auto lined = [&row](const char* name, const QByteArray& shape) {
            row(name, svg("<clipPath id='c'/><g clip-path='url(#c)' stroke='red'>" + shape + "</g>"));
        };
        const QByteArray curve = "<path d='M0 0C9 9 0 9 9 0'/>";
        lined("wide line", "<g stroke-width='1e6'>" + curve + "</g>");
        lined("wide line by style", "<g style='stroke-width:1000000px'>" + curve + "</g>");
        lined("wide line by class", "<style>.a{stroke-width:1e6}</style><g class='a'>" + curve + "</g>");
        lined("wide line by another rule", "<style>path{stroke-width:1e6}</style>" + curve);
        lined("line as wide as a letter", "<g stroke-width='9em'>" + curve + "</g>");
        lined("enlarged line", "<g transform='translate(9) scale(1e6)'>" + curve + "</g>");
        lined("line enlarged by a matrix", "<g transform='matrix(1 0 0-1e6 0 0)'>" + curve + "</g>");
        lined("line enlarged step by step",
              QByteArray("<g transform='scale(10)'>").repeated(6) + curve + QByteArray("</g>").repeated(6));
        lined("line enlarged where it is repeated",
              "<defs><g transform='scale(1000)'><path id='p' d='M0 0C9 9 0 9 9 0'/><g id='g' "
              "transform='scale(1000)'><use xlink:href='#p'/></g></g></defs><use xlink:href='#g' "
              "transform='scale(1000)'/>");
        lined("line enlarged by a rule", "<style>.a{transform:scale(1e6)}</style><g class='a'>" + curve + "</g>");
        lined("line enlarged by another rule", "<style>path{transform:scale(1e6)}</style>" + curve);
        lined("line enlarged by a skew", "<g transform='skewX(89.99999)'>" + curve + "</g>");
        lined("line enlarged by a view box", "<svg viewBox='0 0 .0001 .0001'>" + curve + "</svg>");
        lined("line enlarged by a marker", "<marker id='m' viewBox='0 0 .01 .01'>" + curve +
                                               "</marker><path d='M0 0h9v9' stroke-width='99' marker-mid='url(#m)'/>");
        lined("line enlarged by what it clips", "<clipPath id='d' clipPathUnits='objectBoundingBox'>" + curve +
                                                    "</clipPath><rect width='9' height='9' clip-path='url(#d)'/>");
        row("line in a picture of no size",
            svg("<clipPath id='c'/><path clip-path='url(#c)' stroke='red' d='M0 0h9'/>", "width='1e-9' height='1e-9'"));
        row("many references of each class", svg("<style>" + QByteArray(".a,").repeated(9) + ".b{" +
                                                 QByteArray("mask:url(#m);").repeated(40) + "}</style><g class='b'/>"));
        row("many classes", [] {
            QByteArray sheet;
            for (int i = 0; i < 5000; ++i)
                sheet += ".c" + QByteArray::number(i) + ',';
            return svg("<style>" + sheet + ".b{mask:url(#m)}</style><g class='b'/>");
        }());
        row("much text", svg("<text>" + QByteArray("a").repeated(1000) + "</text>"));
        row("many fonts", svg("<text>" + QByteArray("<tspan> </tspan>").repeated(100) + "</text>"));
        row("vector behind a picture",
            svg("<text/><image width='9' height='9' xlink:href='data:image/svg+xml,&lt;svg/&gt;base64," +
                png(8, 8, 0).toBase64() + "'/>"));
        row("two pictures in one address",
            svg("<text/><image width='9' height='9' xlink:href='data:image/png;base64,AAAAbase64," +
                png(8, 8, 0).toBase64() + "'/>"));
        row("many pixels of pictures",
            svg("<text/>" + QByteArray("<image width='9' height='9' xlink:href='data:image/png;base64," +
                                       png(1000, 1000, red).toBase64() + "'/>")
                                .repeated(130)));
        row("another file in this one",
            svg("<clipPath id='c'>" + redSquare + "</clipPath><g clip-path='url(#c)'><xi:include " +
                "xmlns:xi='http://www.w3.org/2001/XInclude' href='/etc/passwd' parse='text'/></g>"));
        row("another encoding", "<?xml version='1.0' encoding='ISO-8859-1'?>" + maskedByAFilteredGroup());
    }
    void effectsBeyondTheLimitsAreNotDrawn() {
        QFETCH(QByteArray, bytes);
        const SvgEffects effects = SvgEffects::read(bytes);
        QVERIFY(effects.areWanted());
        QVERIFY(!effects.canBeDrawn(208));
        if (SvgGuard::check(bytes) == SvgVerdict::accepted)
            QVERIFY(!IconFileDecoder::decode(bytes, 208).isNull());
    }

    void fewerEffectsAreDrawnOnMorePixels() {
        const SvgEffects effects = SvgEffects::read(nestedMasks(1, "mask='url(#)'"));
        QVERIFY(effects.canBeDrawn(512));
        QVERIFY(!effects.canBeDrawn(2048));
    }

    // The library goes as deep into the stack as the picture is.
    void deepPicturesAreDrawnOnAThread() {
        QByteArray uses = "<g id='u0'>" + redSquare + "</g>";
        for (int i = 1; i < 130; ++i)
            uses +=
                "<g id='u" + QByteArray::number(i) + "'><use xlink:href='#u" + QByteArray::number(i - 1) + "'/></g>";
        const QByteArray bytes = svg("<defs>" + uses +
                                     "</defs><clipPath id='c'><rect width='50' height='50'/></clipPath>"
                                     "<g clip-path='url(#c)'><use xlink:href='#u129'/></g>");
        QVERIFY(SvgEffects::read(bytes).canBeDrawn(50));
        QImage image;
        std::thread([&] { image = IconFileDecoder::decode(bytes, 50); }).join();
        QCOMPARE(image.pixel(10, 10), red);
        QCOMPARE(image.pixel(40, 40), nothing);
    }

    void threadsLoadAndDrawAtOnce() {
        if (!isAlone())
            return runAlone("threadsLoadAndDrawAtOnce");
        std::array<bool, 4> areRight{};
        std::latch start(4);
        std::vector<std::thread> threads;
        for (bool& isRight : areRight) {
            threads.emplace_back([&] {
                start.arrive_and_wait();
                isRight = true;
                for (int i = 0; i < 20; ++i) {
                    const QImage image = IconFileDecoder::decode(maskedByAFilteredGroup(), 100);
                    isRight = isRight && image.pixel(50, 50) == red && image.pixel(2, 2) == nothing;
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        for (const bool isRight : areRight)
            QVERIFY(isRight);
    }

    void plainPicturesLoadNoLibrary() {
        if (!isAlone())
            return runAlone("plainPicturesLoadNoLibrary");
        QVERIFY(!IconFileDecoder::decode(svg(redSquare), 100).isNull());
        QVERIFY(!isLibraryLoaded());
        QVERIFY(!IconFileDecoder::decode(maskedByAFilteredGroup(), 100).isNull());
        QVERIFY(isLibraryLoaded());
    }

    void withoutTheLibraryEffectsArePassedOver() {
        if (!isAlone()) {
            // A damaged library before the right one ends the search.
            const IconTestFolder folder;
            folder.write("librsvg-2.so.2");
            return runAlone("withoutTheLibraryEffectsArePassedOver", folder.path());
        }
        const QByteArray bytes = svg(
            "<clipPath id='c'><rect width='50' height='50'/></clipPath><g clip-path='url(#c)'>" + redSquare + "</g>");
        QCOMPARE(IconFileDecoder::decode(bytes, 100).pixel(97, 97), red);
        QVERIFY(!isLibraryLoaded());
    }
};

QTEST_MAIN(SvgEffectsTest)
#include "SvgEffectsTest.moc"
