#include "platform/linux/icons/Jpeg2000Guard.h"
#include "platform/linux/icons/IconFileDecoder.h"
#include "platform/linux/icons/Jpeg2000Picture.h"

#include <QFile>
#include <QTest>

#include <sys/resource.h>

using namespace zelmo;

namespace {

constexpr int sideLimit = 1024;

QByteArray bigEndian(quint64 value, int size) {
    QByteArray bytes;
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
    return bytes;
}

QByteArray box(const char* type, const QByteArray& contents) {
    return bigEndian(static_cast<quint64>(contents.size()) + 8, 4) + type + contents;
}

QByteArray segment(quint64 marker, const QByteArray& contents) {
    return bigEndian(marker, 2) + bigEndian(static_cast<quint64>(contents.size()) + 2, 2) + contents;
}

// A picture put together part by part, sound or not, with nothing in its tile.
struct Picture {
    quint64 side = 64;
    quint64 tileSide = 64;
    int components = 3;
    QByteArray component = QByteArray::fromHex("070101");
    quint64 layers = 1;
    QByteArray coding = QByteArray::fromHex("0504040000"); // six resolutions, blocks of 64 by 64
    QByteArray precincts = {};
    QByteArray header = {};     // segments before the first tile
    QByteArray tileHeader = {}; // segments in that of the tile
    QByteArray boxes = {};      // before the code stream
    quint64 tileLength = 14;
    QByteArray data = {};

    QByteArray codeStream() const {
        const QByteArray style(1, precincts.isEmpty() ? '\0' : '\1');
        const QByteArray size = bigEndian(0, 2) + bigEndian(side, 4) + bigEndian(side, 4) + bigEndian(0, 8) +
                                bigEndian(tileSide, 4) + bigEndian(tileSide, 4) + bigEndian(0, 8) +
                                bigEndian(static_cast<quint64>(components), 2) + component.repeated(components);
        const quint64 length = tileLength == 0 ? 0 : tileLength + static_cast<quint64>(tileHeader.size());
        return bigEndian(0xFF4F, 2) + segment(0xFF51, size) +
               segment(0xFF52, style + '\0' + bigEndian(layers, 2) + '\0' + coding + precincts) +
               segment(0xFF5C, QByteArray(1, '\x40') + QByteArray(16, '\x48')) + header +
               segment(0xFF90, bigEndian(0, 2) + bigEndian(length, 4) + bigEndian(1, 2)) + tileHeader +
               bigEndian(0xFF93, 2) + data + bigEndian(0xFFD9, 2);
    }

    QByteArray bytes() const {
        const QByteArray imageHeader = bigEndian(side, 4) + bigEndian(side, 4) +
                                       bigEndian(static_cast<quint64>(components), 2) + QByteArray::fromHex("07070000");
        return QByteArray("\0\0\0\x0cjP  \r\n\x87\n", 12) + box("ftyp", "jp2 " + QByteArray(4, '\0') + "jp2 ") +
               box("jp2h", box("ihdr", imageHeader) + box("colr", QByteArray::fromHex("01000000000010")) + boxes) +
               box("jp2c", codeStream());
    }
};

long peakMebibytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

class Jpeg2000GuardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatIconsAreMadeOfPasses_data() {
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char* name, const Picture& picture) { QTest::newRow(name) << picture.bytes(); };
        row("plain", {});
        row("gray with transparency", {.components = 2});
        row("of the largest size", {.side = 1024, .tileSide = 1024});
        row("of a thousand tiles", {.side = 1024, .tileSide = 32});
        row("with usual precincts", {.precincts = QByteArray::fromHex("778888888888")});
        row("with a comment and lengths", {.header = segment(0xFF64, "\0\1x") + segment(0xFF55, "a")});
        row("with an open end", {.tileLength = 0, .data = "data"});
        row("cut off in the data", {.tileLength = 5000, .data = "data"});
        row("with data that looks like a header",
            {.tileLength = 14 + 12, .data = QByteArray::fromHex("ff52000c") + "12345678"});
        QTest::newRow("with a box of an open end") << [] {
            QByteArray bytes = Picture().bytes();
            return bytes.replace(bytes.indexOf("jp2c") - 4, 4, QByteArray(4, '\0'));
        }();
        for (const char* name : {"jp2", "jp2-gray", "jp2-color"}) {
            QFile file(QStringLiteral(ZELMO_ICON_CORPUS "/") + QLatin1StringView(name));
            QVERIFY(file.open(QFile::ReadOnly));
            QTest::newRow(name) << file.readAll().mid(1);
        }
    }
    void whatIconsAreMadeOfPasses() {
        QFETCH(QByteArray, bytes);
        QVERIFY(isHarmlessJpeg2000(bytes, sideLimit));
    }

    void whatTakesMemoryBeyondItsSizeIsRefused_data() {
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char* name, const Picture& picture) { QTest::newRow(name) << picture.bytes(); };
        const QByteArray coding = QByteArray::fromHex("0504040000");
        row("many components", {.components = 16'000});
        row("many tiles", {.side = 1024, .tileSide = 5});
        row("tiles of no size", {.tileSide = 0});
        row("too large", {.side = 1025, .tileSide = 1025});
        row("of no size", {.side = 0});
        row("16 bits", {.component = QByteArray::fromHex("0f0101")});
        row("small components", {.component = QByteArray::fromHex("070202")});
        row("many layers", {.layers = 65'535});
        row("many resolutions", {.coding = QByteArray::fromHex("ff04040000")});
        row("small precincts", {.precincts = QByteArray(6, '\0')});
        row("small precincts of a component",
            {.header = segment(0xFF53, QByteArray::fromHex("0001") + coding + QByteArray(6, '\0'))});
        row("small precincts of a tile",
            {.tileHeader = segment(0xFF52, QByteArray::fromHex("0100000100") + coding + QByteArray(6, '\0'))});
        row("many layers of a tile", {.tileHeader = segment(0xFF52, QByteArray::fromHex("0000ffff00") + coding)});
        row("a palette", {.boxes = box("pclr", QByteArray::fromHex("000107000000"))});
        QTest::newRow("a palette outside of the header") << [] {
            QByteArray bytes = Picture().bytes();
            return bytes.insert(bytes.indexOf("jp2c") - 4, box("pclr", QByteArray::fromHex("000107000000")));
        }();
        // What the decoder would look into for the markers that it knows.
        row("an unknown marker", {.header = segment(0xFF99, segment(0xFF52, "x"))});
        row("a second size", {.header = segment(0xFF51, "x")});
        row("another order of packets", {.header = segment(0xFF5F, "x")});
        row("headers apart from their packets", {.header = segment(0xFF60, "x")});
        row("a segment beyond the end", {.header = QByteArray::fromHex("ff64ffff")});
        row("a tile part that ends before its data", {.tileLength = 13});
        row("a gap between tile parts", {.tileLength = 16, .data = "datadata"});
    }
    void whatTakesMemoryBeyondItsSizeIsRefused() {
        QFETCH(QByteArray, bytes);
        QVERIFY(!isHarmlessJpeg2000(bytes, sideLimit));
    }

    void everyBeginningOfAPictureIsReadSafely() {
        const QByteArray bytes = Picture{.precincts = QByteArray::fromHex("778888888888")}.bytes();
        for (qsizetype length = 0; length < bytes.indexOf("\xff\x93"); ++length)
            QVERIFY(!isHarmlessJpeg2000(QByteArray(bytes.constData(), length), sideLimit));
    }

    // More than the decoder reads ahead, so that it has to be told how to get over it.
    void whatStandsBeforeThePictureIsSkippedHoweverLongItIs() {
        QFile file(QStringLiteral(ZELMO_ICON_CORPUS "/jp2-color"));
        QVERIFY(file.open(QFile::ReadOnly));
        QByteArray bytes = file.readAll().mid(1);
        const QImage plain = Jpeg2000Picture::decode(bytes, sideLimit);
        QVERIFY(!plain.isNull());
        bytes.insert(bytes.indexOf("jp2c") - 4, box("uuid", QByteArray(3 * 1024 * 1024, 'x')));
        QCOMPARE(Jpeg2000Picture::decode(bytes, sideLimit), plain);
    }

    void decoderNeverSeesWhatIsRefused() {
        const QByteArray bytes = Picture{.side = 1024, .tileSide = 256, .components = 16'000}.bytes();
        const QByteArray icon = "icns" + bigEndian(static_cast<quint64>(bytes.size()) + 16, 4) + box("ic10", bytes);
        const long before = peakMebibytes();
        QVERIFY(IconFileDecoder::decode(icon, 64).isNull());
        QVERIFY(peakMebibytes() - before < 50);
    }
};

QTEST_GUILESS_MAIN(Jpeg2000GuardTest)
#include "Jpeg2000GuardTest.moc"
