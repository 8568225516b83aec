#include "IconTestFiles.h"

#include "platform/linux/icons/IconFileDecoder.h"

#include <QImageWriter>
#include <QPainter>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTest>
#include <QtEndian>

#include <sys/resource.h>
#include <sys/stat.h>
#include <zlib.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr QRgb red = 0xFFFF0000;
constexpr QRgb green = 0xFF00FF00;
constexpr QRgb blue = 0xFF0000FF;
constexpr QRgb nothing = 0;

QByteArray compressed(const QByteArray& bytes) {
    z_stream stream{};
    QByteArray output(static_cast<qsizetype>(compressBound(static_cast<uLong>(bytes.size()))) + 64, Qt::Uninitialized);
    deflateInit2(&stream, 9, Z_DEFLATED, 16 + MAX_WBITS, 9, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.constData()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(output.data());
    stream.avail_out = static_cast<uInt>(output.size());
    deflate(&stream, Z_FINISH);
    output.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return output;
}

// A picture that says it is larger than it is.
QByteArray pngClaiming(std::uint32_t width, std::uint32_t height) {
    QByteArray bytes = png(8, 8, red);
    qToBigEndian(width, bytes.data() + 16);
    qToBigEndian(height, bytes.data() + 20);
    const uLong sum = crc32(0, reinterpret_cast<const Bytef*>(bytes.constData() + 12), 17);
    qToBigEndian(static_cast<std::uint32_t>(sum), bytes.data() + 29);
    return bytes;
}

QByteArray ico(const QList<QByteArray>& pictures, const QList<int>& sides) {
    QByteArray directory("\0\0\1\0\0\0", 6);
    qToLittleEndian(static_cast<std::uint16_t>(pictures.size()), directory.data() + 4);
    QByteArray bytes;
    for (qsizetype i = 0; i < pictures.size(); ++i) {
        QByteArray entry(16, '\0');
        entry[0] = entry[1] = static_cast<char>(sides[i]);
        qToLittleEndian<std::uint16_t>(32, entry.data() + 6);
        qToLittleEndian(static_cast<std::uint32_t>(pictures[i].size()), entry.data() + 8);
        qToLittleEndian(static_cast<std::uint32_t>(6 + 16 * pictures.size() + bytes.size()), entry.data() + 12);
        directory += entry;
        bytes += pictures[i];
    }
    return directory + bytes;
}

// Goes over its pixels again and again; each time takes a few bytes.
QByteArray jpegOfManyScans(int count) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "JPEG");
    writer.setProgressiveScanWrite(true);
    if (!writer.write(filled(64, 64, red)))
        qFatal("can't encode JPEG");
    const qsizetype scan = bytes.lastIndexOf("\xff\xda");
    const qsizetype end = bytes.size() - 2;
    return bytes.left(end) + bytes.mid(scan, end - scan).repeated(count) + bytes.mid(end);
}

long peakMebibytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

class IconFileDecoderTest : public QObject {
    Q_OBJECT

    std::unique_ptr<IconTestFolder> m_folder;

    // Written by a program that knows nothing of the decoder.
    QByteArray icns(const QList<QImage>& images) const {
        const QString program = QStandardPaths::findExecutable(QStringLiteral("png2icns"));
        if (program.isEmpty()) {
            QTest::qFail("png2icns is missing; it is in the package icnsutils", __FILE__, __LINE__);
            return {};
        }
        const QString output = QFile::decodeName(m_folder->path("out.icns"));
        QStringList arguments{output};
        for (qsizetype i = 0; i < images.size(); ++i) {
            arguments += QFile::decodeName(m_folder->path()) + QStringLiteral("/in%1.png").arg(i);
            images[i].save(arguments.last());
        }
        QProcess process;
        process.start(program, arguments);
        process.waitForFinished();
        QFile file(output);
        if (process.exitCode() != 0 || !file.open(QIODevice::ReadOnly))
            QTest::qFail(process.readAllStandardError().constData(), __FILE__, __LINE__);
        return file.readAll();
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<IconTestFolder>(); }

    void everyFormatGivesItsColor_data() {
        QTest::addColumn<QByteArray>("bytes");
        for (const char* format : {"PNG", "BMP", "XPM", "JPEG", "WEBP", "ICO"})
            QTest::newRow(format) << encoded(filled(32, 32, red), format);
        QTest::newRow("progressive JPEG") << jpegOfManyScans(0);
        QTest::newRow("GIF") << QByteArray::fromBase64("R0lGODlhAQABAPAAAP8AAAAAACwAAAAAAQABAAACAkQBADs=");
        QTest::newRow("SVG") << svg("<rect width='100' height='100' fill='#f00'/>");
        QTest::newRow("SVG with a declaration")
            << QByteArray(
                   "<?xml version='1.0'?>\n<!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 1.1//EN' 'x.dtd'>\n<!-- c -->") +
                   svg("<rect width='100' height='100' fill='#f00'/>");
        QTest::newRow("SVGZ") << compressed(svg("<rect width='100' height='100' fill='#f00'/>"));
        QTest::newRow("SVG holding a PNG") << svg("<image width='100' height='100' xlink:href='data:image/png;base64," +
                                                  png(8, 8, red).toBase64() + "'/>");
    }
    void everyFormatGivesItsColor() {
        QFETCH(QByteArray, bytes);
        const QImage image = IconFileDecoder::decode(bytes, 20);
        QCOMPARE(image.size(), QSize(20, 20));
        QCOMPARE(image.format(), QImage::Format_ARGB32_Premultiplied);
        for (const QPoint at : {QPoint(0, 0), QPoint(19, 19), QPoint(10, 10)}) {
            const QRgb color = image.pixel(at);
            QVERIFY(qRed(color) > 250 && qGreen(color) < 6 && qBlue(color) < 6 && qAlpha(color) == 255);
        }
    }

    void formatIsToldByTheContents() {
        m_folder->write("picture.svg", png(8, 8, green));
        m_folder->write("picture.png", svg("<rect width='100' height='100' fill='#0f0'/>"));
        QCOMPARE(IconFileDecoder::decodeFile(m_folder->path("picture.svg"), 8).pixel(4, 4), green);
        QCOMPARE(IconFileDecoder::decodeFile(m_folder->path("picture.png"), 8).pixel(4, 4), green);
    }

    void pictureOfTheExactSizeIsUntouched() {
        QImage checker(208, 208, QImage::Format_ARGB32);
        for (int y = 0; y < 208; ++y) {
            for (int x = 0; x < 208; ++x)
                checker.setPixel(x, y, (x + y) % 2 ? red : nothing);
        }
        const QImage image = IconFileDecoder::decode(encoded(checker, "PNG"), 208);
        QCOMPARE(image, checker.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    }

    void halvingAveragesNeighbours() {
        QImage stripes(64, 64, QImage::Format_ARGB32);
        for (int x = 0; x < 64; ++x) {
            for (int y = 0; y < 64; ++y)
                stripes.setPixel(x, y, x % 2 ? 0xFFFFFFFF : 0xFF000000);
        }
        const QImage image = IconFileDecoder::decode(encoded(stripes, "PNG"), 32);
        for (int x = 1; x < 31; ++x)
            QVERIFY(std::abs(qRed(image.pixel(x, 16)) - 128) <= 2);
    }

    void edgesStaySharpWhenScaledDown() {
        QImage edge(128, 128, QImage::Format_ARGB32);
        edge.fill(0xFF000000);
        for (int y = 0; y < 128; ++y) {
            for (int x = 64; x < 128; ++x)
                edge.setPixel(x, y, 0xFFFFFFFF);
        }
        const QImage image = IconFileDecoder::decode(encoded(edge, "PNG"), 104);
        QCOMPARE(image.pixel(50, 52), 0xFF000000);
        QCOMPARE(image.pixel(53, 52), 0xFFFFFFFF);
    }

    void colorsOfTransparentPixelsDoNotBleed() {
        QImage image = filled(64, 64, 0x00FFFFFF);
        for (int y = 16; y < 48; ++y) {
            for (int x = 16; x < 48; ++x)
                image.setPixel(x, y, red);
        }
        const QImage small = IconFileDecoder::decode(encoded(image, "PNG"), 24);
        for (int y = 0; y < 24; ++y) {
            for (int x = 0; x < 24; ++x)
                QCOMPARE(qGreen(small.pixel(x, y)), 0);
        }
    }

    void aspectIsKeptAndCentred_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("bitmap") << png(40, 20, red);
        QTest::newRow("vector by its view box")
            << svg("<rect width='40' height='20' fill='#f00'/>", "viewBox='0 0 40 20'");
        QTest::newRow("vector by its size")
            << svg("<rect width='40' height='20' fill='#f00'/>", "width='40' height='20'");
    }
    void aspectIsKeptAndCentred() {
        QFETCH(QByteArray, bytes);
        const QImage image = IconFileDecoder::decode(bytes, 80);
        QCOMPARE(image.size(), QSize(80, 80));
        QCOMPARE(image.pixel(40, 18), nothing);
        QCOMPARE(image.pixel(1, 22), red);
        QCOMPARE(image.pixel(78, 58), red);
        QCOMPARE(image.pixel(40, 62), nothing);
    }

    void thinPicturesKeepAtLeastALine() {
        const QImage image = IconFileDecoder::decode(png(4096, 1, red), 104);
        QCOMPARE(image.size(), QSize(104, 104));
        QCOMPARE(qAlpha(image.pixel(52, 51)), 255);
    }

    void vectorsAreDrawnAtTheWantedSize() {
        const QByteArray edge = svg("<rect x='8' width='8' height='16' fill='#fff'/>", "viewBox='0 0 16 16'");
        const QImage image = IconFileDecoder::decode(edge, 208);
        QCOMPARE(image.pixel(103, 100), nothing);
        QCOMPARE(image.pixel(104, 100), 0xFFFFFFFF);
    }

    void icnsGivesTheSmallestThatIsLargeEnough_data() {
        QTest::addColumn<int>("pixels");
        QTest::addColumn<QRgb>("color");
        QTest::newRow("exact") << 32 << red;
        QTest::newRow("next larger") << 40 << green;
        QTest::newRow("exact, the largest") << 256 << blue;
        QTest::newRow("none is large enough") << 512 << blue;
        QTest::newRow("smaller than all") << 16 << red;
    }
    void icnsGivesTheSmallestThatIsLargeEnough() {
        QFETCH(int, pixels);
        QFETCH(QRgb, color);
        const QByteArray bytes = icns({filled(256, 256, blue), filled(32, 32, red), filled(128, 128, green)});
        const QImage image = IconFileDecoder::decode(bytes, pixels);
        QCOMPARE(image.size(), QSize(pixels, pixels));
        QCOMPARE(image.pixel(pixels / 2, pixels / 2), color);
        QCOMPARE(image.pixel(0, 0), color);
    }

    void icnsKeepsEveryPixelAndItsTransparency_data() {
        QTest::addColumn<int>("side");
        for (int side : {16, 32, 48, 128, 256, 512})
            QTest::addRow("%d", side) << side;
    }
    void icnsKeepsEveryPixelAndItsTransparency() {
        QFETCH(int, side);
        QImage image(side, side, QImage::Format_ARGB32);
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x)
                image.setPixel(x, y, y < side / 2 ? qRgba(x % 256, y % 256, (x * y) % 256, 255) : nothing);
        }
        const QImage decoded = IconFileDecoder::decode(icns({image}), side);
        QCOMPARE(decoded, image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    }

    void damagedPartOfAContainerIsPassedOver() {
        const QByteArray bytes = ico({png(64, 64, red).left(40), png(128, 128, green)}, {64, 128});
        QCOMPARE(IconFileDecoder::decode(bytes, 64).pixel(32, 32), green);
    }

    void icoGivesTheSmallestThatIsLargeEnough() {
        const QByteArray bytes = ico({png(16, 16, red), png(256, 256, blue), png(48, 48, green)}, {16, 0, 48});
        QCOMPARE(IconFileDecoder::decode(bytes, 16).pixel(8, 8), red);
        QCOMPARE(IconFileDecoder::decode(bytes, 32).pixel(8, 8), green);
        QCOMPARE(IconFileDecoder::decode(bytes, 49).pixel(8, 8), blue);
    }

    void hostileBytesGiveNoPicture_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("garbage") << QByteArray("\x01\x02\x03garbage").repeated(1000);
        QTest::newRow("text") << QByteArray("hello");
        QTest::newRow("zeros") << QByteArray(1'000'000, '\0');
        QTest::newRow("claims 30000 by 30000") << pngClaiming(30000, 30000);
        QTest::newRow("claims 2^31 by 2^31") << pngClaiming(0x7FFFFFFF, 0x7FFFFFFF);
        QTest::newRow("is 5000 by 5000") << encoded(QImage(5000, 5000, QImage::Format_Mono), "PNG");
        QTest::newRow("is 64 bits deep") << encoded(QImage(4000, 4000, QImage::Format_RGBA64), "PNG");
        QTest::newRow("ico holding a bomb") << ico({pngClaiming(30000, 30000)}, {32});
        QTest::newRow("ico beyond its end") << ico({png(16, 16, red)}, {16}).left(40);
        QTest::newRow("JPEG of many scans") << jpegOfManyScans(100);
        QTest::newRow("JPEG of many scans in a vector")
            << svg("<image width='9' height='9' xlink:href='data:image/jpeg;base64," + jpegOfManyScans(100).toBase64() +
                   "'/>");
        QTest::newRow("icns of empty blocks")
            << QByteArray("icns\0\0\1\0", 8) + QByteArray("ic07\0\0\0\0", 8).repeated(31);
        QTest::newRow("icns beyond its end") << QByteArray("icns\0\0\1\0ic07\x7f\xff\xff\xff", 16);
        QTest::newRow("icns alone") << QByteArray("icns");
        QTest::newRow("XPM of many colors")
            << QByteArray("/* XPM */\nstatic char*x[]={\n\"9 9 2000000000 9\",\n\"a c red\"};");
        QTest::newRow("XPM of a large size")
            << QByteArray("/* XPM */\nstatic char*x[]={\n\"30000 30000 1 1\",\n\"a c red\"};");
        QTest::newRow("gzip bomb") << compressed(svg(QByteArray(64'000'000, ' ')));
        QTest::newRow("gzip in gzip") << compressed(compressed(svg("<rect width='9' height='9'/>")));
        QTest::newRow("truncated gzip") << compressed(svg("<rect width='9' height='9'/>")).chopped(12);
        QTest::newRow("beyond the size limit") << png(8, 8, red) + QByteArray(16 * 1024 * 1024, '\0');
    }
    void hostileBytesGiveNoPicture() {
        QFETCH(QByteArray, bytes);
        const long before = peakMebibytes();
        QVERIFY(IconFileDecoder::decode(bytes, 208).isNull());
        QVERIFY(peakMebibytes() - before < 100);
    }

    void picturesOfTheSameBytesAreNotCopiedEach() {
        const QByteArray one = ico({QByteArray(8 * 1024 * 1024, '\0')}, {32});
        QByteArray bytes = one.left(6) + one.mid(6, 16).repeated(255) + one.mid(22);
        bytes[4] = static_cast<char>(255);
        const long before = peakMebibytes();
        IconFileDecoder::decode(bytes, 32);
        QVERIFY(peakMebibytes() - before < 100);
    }

    void whatIsNoRegularFileGivesNoPicture() {
        const QByteArray pipe = m_folder->path("pipe");
        QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
        QVERIFY(IconFileDecoder::decodeFile(pipe, 104).isNull());
        QVERIFY(IconFileDecoder::decodeFile(m_folder->path(), 104).isNull());
        QVERIFY(IconFileDecoder::decodeFile("/dev/zero", 104).isNull());
        QVERIFY(IconFileDecoder::decodeFile(m_folder->path("missing"), 104).isNull());
    }

    void absurdSizesGiveNoPicture() {
        for (int pixels : {-1, 0, 2049, 1 << 30})
            QVERIFY(IconFileDecoder::decode(png(8, 8, red), pixels).isNull());
    }

    // The decoders must survive whatever a damaged disk or a malicious author makes of a file.
    void damagedFilesDoNoHarm_data() {
        QTest::addColumn<QByteArray>("bytes");
        for (const char* format : {"PNG", "BMP", "XPM", "JPEG", "WEBP", "ICO"})
            QTest::newRow(format) << encoded(filled(24, 24, red), format);
        QTest::newRow("SVG") << svg("<g id='a'><path d='M0 0C9 9 9 9 3 3' stroke='red' stroke-dasharray='3 4'/></g>"
                                    "<use xlink:href='#a' transform='scale(2)'/>");
        QTest::newRow("SVG with effects")
            << svg("<filter id='f'><feGaussianBlur stdDeviation='2'/></filter><mask id='m'><rect width='50' "
                   "height='60' fill='#fff' filter='url(#f)'/></mask><clipPath id='c'><path d='M0 0h9v9z'/></clipPath>"
                   "<g mask='url(#m)'><rect width='9' height='9' style='clip-path:url(#c)'/><text>a</text></g>");
        QTest::newRow("ICNS") << icns({filled(32, 32, red), filled(128, 128, green)});
        QTest::newRow("ICNS of JPEG 2000") << icns({filled(256, 256, red)});
    }
    void damagedFilesDoNoHarm() {
        QFETCH(QByteArray, bytes);
        for (int percent = 0; percent < 100; percent += 3) {
            const QImage image = IconFileDecoder::decode(bytes.left(bytes.size() * percent / 100), 32);
            QVERIFY(image.isNull() || image.size() == QSize(32, 32));
        }
        QRandomGenerator random(7);
        for (int round = 0; round < 300; ++round) {
            QByteArray damaged = bytes;
            for (int i = 0; i < 4; ++i)
                damaged[random.bounded(static_cast<int>(damaged.size()))] = static_cast<char>(random.bounded(256));
            const QImage image = IconFileDecoder::decode(damaged, 32);
            QVERIFY(image.isNull() || image.size() == QSize(32, 32));
        }
    }
};

QTEST_MAIN(IconFileDecoderTest)
#include "IconFileDecoderTest.moc"
