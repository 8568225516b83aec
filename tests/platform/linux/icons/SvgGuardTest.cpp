#include "IconTestFiles.h"

#include "platform/linux/icons/IconFileDecoder.h"
#include "platform/linux/icons/SvgGuard.h"

#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

Q_DECLARE_METATYPE(zelmo::SvgVerdict)

namespace {

QByteArray number(int value) {
    return QByteArray::number(value);
}

// Each level repeats the level below it ten times.
QByteArray nestedUses(int levels) {
    QByteArray body = "<path id='l0' d='M0 0h9v9z'/>";
    for (int level = 1; level <= levels; ++level) {
        const QByteArray use = "<use xlink:href='#l" + number(level - 1) + "'/>";
        body += "<g id='l" + number(level) + "'>" + use.repeated(10) + "</g>";
    }
    return svg(body);
}

QByteArray zigzag(int lines) {
    return "M0 0" + QByteArray("L100 100L0 0").repeated(lines / 2);
}

QByteArray picture(const QByteArray& address) {
    return svg("<image width='9' height='9' xlink:href='" + address + "'/>");
}

} // namespace

class SvgGuardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void verdict_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<SvgVerdict>("expected");
        const auto row = [](const char* name, const QByteArray& bytes, SvgVerdict expected) {
            QTest::newRow(name) << bytes << expected;
        };
        using enum SvgVerdict;
        row("plain", svg("<rect width='9' height='9'/>"), accepted);
        row("prefix without a declaration", "<svg><use xlink:href='#a'/><rect id='a' width='9' height='9'/></svg>",
            accepted);
        row("repeated a little", nestedUses(3), accepted);
        row("links to the web", svg("<a xlink:href='https://example.org'><rect width='9' height='9'/></a>"), accepted);
        row("names a color profile", svg("<color-profile xlink:href='/usr/share/color/icc/sRGB.icc'/>"), accepted);
        row("dashed", svg("<path d='M0 0L9 9' stroke='red' stroke-dasharray='1 2'/>"), accepted);
        row("dashed, without a view box",
            svg("<path d='" + zigzag(100) + "' stroke-dasharray='4'/>", "width='64px' height='64'"), accepted);
        row("no dashes", svg("<g style='stroke-dasharray:none'><path d='" + zigzag(9000) + "'/></g>"), accepted);
        row("long outline without a stroke",
            svg("<path style='stroke-width:1;stroke:none' d='M0 0" + QByteArray("h9v9").repeated(6000) + "'/>"),
            accepted);
        row("stroked", svg("<path stroke='red' d='" + zigzag(1000) + "'/>"), accepted);
        row("stroked text", svg("<text stroke='red'>" + QByteArray("@").repeated(200) + "</text>"), accepted);
        row("some texts", svg(QByteArray("<text>a</text>").repeated(100)), accepted);
        row("holds a picture", picture("data:image/png;base64," + png(8, 8, 0).toBase64()), accepted);

        row("nothing", "", damaged);
        row("another document", "<html/>", damaged);
        row("cut off", "<svg><g>", damaged);
        row("unknown entity", svg("&unknown;"), damaged);

        row("many bytes", svg(QByteArray(4 * 1024 * 1024, ' ')), tooLarge);
        row("many elements", svg(QByteArray("<g/>").repeated(10'000)), tooLarge);
        row("deep", svg(QByteArray("<g>").repeated(64) + QByteArray("</g>").repeated(64)), tooLarge);

        row("repeated much", nestedUses(5), tooHeavy);
        row("repeated beyond counting", nestedUses(40), tooHeavy);
        row("repeated beyond counting, with misleading names",
            nestedUses(40).replace("'><use", "' x:id='a'><use").replace("'/><use", "' x:href='#none'/><use"), tooHeavy);
        row("long outline", svg("<path d='" + zigzag(100'000) + "'/>"), tooHeavy);
        row("long outline, repeated",
            svg("<path id='a' d='" + zigzag(10'000) + "'/>" + QByteArray("<use href='#a'/>").repeated(10)), tooHeavy);
        row("many layers", svg(QByteArray("<g opacity='.5'/>").repeated(5000)), tooHeavy);
        row("long stroked outline", svg("<path stroke='red' d='M0 0" + QByteArray("h9v9").repeated(6000) + "'/>"),
            tooHeavy);
        row("long stroked outline of a group",
            svg("<g stroke='red'><path d='M0 0" + QByteArray("h9v9").repeated(6000) + "'/></g>"), tooHeavy);
        row("long stroked outline by style",
            svg("<path style='stroke-width:1;stroke : red' d='M0 0" + QByteArray("h9v9").repeated(6000) + "'/>"),
            tooHeavy);
        row("long stroked outline by sheet",
            svg("<style>path{stroke:red}</style><path d='M0 0" + QByteArray("h9v9").repeated(6000) + "'/>"), tooHeavy);
        row("long stroked outline by escaped sheet",
            svg("<style>path{\\73troke:red}</style><path d='M0 0" + QByteArray("h9v9").repeated(6000) + "'/>"),
            tooHeavy);
        row("long stroked outline by animation",
            svg("<path d='M0 0" + QByteArray("h9v9").repeated(6000) +
                "'><set attributeName='stroke' to='red'/></path>"),
            tooHeavy);
        row("long stroked outline of numbers without spaces",
            svg("<path stroke='red' d='M0 0l" + QByteArray(".1.1").repeated(6000) + "'/>"), tooHeavy);
        row("many stroked circles", svg(QByteArray("<circle r='9' stroke='red'/>").repeated(2000)), tooHeavy);
        row("stroked outline, repeated",
            svg("<path id='a' stroke='red' d='" + zigzag(200) + "'/>" + QByteArray("<use href='#a'/>").repeated(100)),
            tooHeavy);
        row("long stroked text", svg("<text stroke='red'>" + QByteArray("@").repeated(500) + "</text>"), tooHeavy);
        row("long text of stroked glyphs",
            svg("<font stroke='red'><glyph unicode='a' d='" + zigzag(500) + "'/></font><text>" +
                QByteArray("a").repeated(50) + "</text>"),
            tooHeavy);
        row("many texts", svg(QByteArray("<text>a</text>").repeated(1100)), tooHeavy);
        row("many spans", svg("<text>" + QByteArray("<tspan>a</tspan>").repeated(1100) + "</text>"), tooHeavy);
        row("long text", svg("<text>" + QByteArray("a").repeated(30'000) + "</text>"), tooHeavy);
        row("large glyphs",
            svg("<font><glyph unicode='a' d='" + zigzag(3000) + "'/></font><text>" + QByteArray("a").repeated(100) +
                "</text>"),
            tooHeavy);
        row("long style sheet",
            svg("<style>" + QByteArray("g g g *{fill:red}").repeated(1000) + "</style>" +
                QByteArray("<g/>").repeated(2000)),
            tooHeavy);
        QByteArray chain;
        for (int i = 0; i < 2000; ++i)
            chain += "<linearGradient id='g" + number(i) + "' xlink:href='#g" + number(i + 1) + "'/>";
        row("long chain", svg(chain), tooHeavy);

        row("uses itself", svg("<use id='a' xlink:href='#a'/>"), containsItself);
        row("uses its group", svg("<g id='a'><use xlink:href='#a'/></g>"), containsItself);
        row("uses each other", svg("<g id='a'><use href='#b'/></g><g id='b'><use href='#a'/></g>"), containsItself);

        row("entities", "<!DOCTYPE svg [<!ENTITY a 'b'>]>" + svg("&a;"), declaresEntities);
        row("nested entities", "<!DOCTYPE svg [<!ENTITY a 'bb'><!ENTITY c '&a;&a;'>]>" + svg("&c;"), declaresEntities);
        row("entity of a file", "<!DOCTYPE svg [<!ENTITY a SYSTEM 'file:///etc/passwd'>]>" + svg("&a;"),
            declaresEntities);

        row("picture file", picture("/etc/passwd"), reachesOutside);
        row("relative picture file", picture("data/other.png"), reachesOutside);
        row("picture address", picture("file:///dev/zero"), reachesOutside);
        row("use of another file", svg("<use xlink:href='other.svg#a'/>"), reachesOutside);
        row("style sheet file", "<?xml-stylesheet type='text/css' href='/dev/zero'?>" + svg(""), reachesOutside);
        row("imported style", svg("<style>@import url('/dev/zero');</style>"), reachesOutside);

        row("large picture",
            picture("data:image/png;base64," + encoded(QImage(3000, 3000, QImage::Format_Mono), "PNG").toBase64()),
            pictureTooLarge);
        row("vector in a vector", picture("data:image/svg+xml;base64," + svg("").toBase64()), pictureTooLarge);
        row("damaged picture", picture("data:image/png;base64,AAAA"), pictureTooLarge);

        row("fine dashes on much", svg("<path d='" + zigzag(2000) + "' stroke='red' stroke-dasharray='.05'/>"),
            tooManyDashes);
        row("fine dashes by style", svg("<path d='" + zigzag(2000) + "' style='stroke:red;stroke-dasharray:.05,.05'/>"),
            tooManyDashes);
        row("fine dashes by sheet", svg("<style>path{stroke-dasharray:.05}</style><path d='" + zigzag(2000) + "'/>"),
            tooManyDashes);
        row("fine dashes by group", svg("<g stroke-dasharray='.05'><path d='" + zigzag(2000) + "'/></g>"),
            tooManyDashes);
        row("fine dashes by scaling",
            svg("<path transform='scale(.001)' d='" + zigzag(2000) + "' stroke-dasharray='5'/>"), tooManyDashes);
        row("fine dashes, repeated",
            svg("<path id='a' d='" + zigzag(20) + "' stroke-dasharray='.5'/>" +
                QByteArray("<use href='#a'/>").repeated(100)),
            tooManyDashes);
    }
    void verdict() {
        QFETCH(QByteArray, bytes);
        QFETCH(SvgVerdict, expected);
        QCOMPARE(SvgGuard::check(bytes), expected);
    }

    void pictureWithTooManyDashesIsDrawnWithoutThem_data() {
        QTest::addColumn<QByteArray>("attributes");
        QTest::newRow("attribute") << QByteArray("stroke='#f00' stroke-width='20' stroke-dasharray='.05'");
        QTest::newRow("style") << QByteArray("style='stroke:#f00;stroke-width:20;stroke-dasharray:.05 .05'");
    }
    void pictureWithTooManyDashesIsDrawnWithoutThem() {
        QFETCH(QByteArray, attributes);
        const QByteArray bytes = svg("<path d='" + QByteArray("M0 50H100").repeated(2000) + "' " + attributes + "/>");
        QCOMPARE(SvgGuard::check(bytes), SvgVerdict::tooManyDashes);
        QCOMPARE(IconFileDecoder::decode(bytes, 100).pixel(50, 50), 0xFFFF0000);
    }

    void refusedPicturesAreNotDrawn() {
        QVERIFY(IconFileDecoder::decode(nestedUses(40), 104).isNull());
        QVERIFY(!IconFileDecoder::decode(nestedUses(3), 104).isNull());
    }
};

QTEST_MAIN(SvgGuardTest)
#include "SvgGuardTest.moc"
