#include "platform/linux/x11/X11PixelLayout.h"

#include <QTest>

using namespace zelmo;

namespace {

using Order = X11PixelLayout::ByteOrder;

const X11PixelLayout rgb32{.bitsPerPixel = 32,
                           .linePadding = 32,
                           .byteOrder = Order::leastFirst,
                           .redMask = 0xff0000,
                           .greenMask = 0x00ff00,
                           .blueMask = 0x0000ff};
const X11PixelLayout rgb16{.bitsPerPixel = 16,
                           .linePadding = 32,
                           .byteOrder = Order::leastFirst,
                           .redMask = 0xf800,
                           .greenMask = 0x07e0,
                           .blueMask = 0x001f};
const X11PixelLayout rgb15{.bitsPerPixel = 16,
                           .linePadding = 32,
                           .byteOrder = Order::leastFirst,
                           .redMask = 0x7c00,
                           .greenMask = 0x03e0,
                           .blueMask = 0x001f};
const X11PixelLayout rgb30{.bitsPerPixel = 32,
                           .linePadding = 32,
                           .byteOrder = Order::leastFirst,
                           .redMask = 0x3ff00000,
                           .greenMask = 0x000ffc00,
                           .blueMask = 0x000003ff};

X11PixelLayout with(X11PixelLayout layout, Order order) {
    layout.byteOrder = order;
    return layout;
}

X11PixelLayout packed(X11PixelLayout layout) {
    layout.bitsPerPixel = 24;
    return layout;
}

X11PixelLayout blueFirst(X11PixelLayout layout) {
    std::swap(layout.redMask, layout.blueMask);
    return layout;
}

// One pixel's bytes, converted.
QRgb converted(const X11PixelLayout& layout, QByteArray bytes) {
    bytes.resize(static_cast<qsizetype>(layout.bytesPerLine(1)));
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    layout.convert(reinterpret_cast<const std::uint8_t*>(bytes.constData()), picture);
    return reinterpret_cast<const QRgb*>(std::as_const(picture).constScanLine(0))[0];
}

} // namespace

Q_DECLARE_METATYPE(zelmo::X11PixelLayout)

class X11PixelLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pixelsOfEachLayoutAreOpaqueColors_data() {
        QTest::addColumn<X11PixelLayout>("layout");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QRgb>("color");
        const QByteArray clear = QByteArray::fromHex("30201000");
        QTest::newRow("32 bits") << rgb32 << clear << qRgb(0x10, 0x20, 0x30);
        QTest::newRow("32 bits with something above") << rgb32 << QByteArray::fromHex("3020107f") << qRgb(16, 32, 48);
        QTest::newRow("32 bits, other order")
            << with(rgb32, Order::mostFirst) << QByteArray::fromHex("00102030") << qRgb(16, 32, 48);
        QTest::newRow("32 bits, blue first") << blueFirst(rgb32) << clear << qRgb(0x30, 0x20, 0x10);
        QTest::newRow("24 bits") << packed(rgb32) << QByteArray::fromHex("302010") << qRgb(16, 32, 48);
        QTest::newRow("24 bits, other order")
            << packed(with(rgb32, Order::mostFirst)) << QByteArray::fromHex("102030") << qRgb(16, 32, 48);
        QTest::newRow("16 bits, white") << rgb16 << QByteArray::fromHex("ffff") << qRgb(255, 255, 255);
        // 16, 32 and 1 of 31, 63 and 31.
        QTest::newRow("16 bits") << rgb16 << QByteArray::fromHex("0184") << qRgb(132, 130, 8);
        QTest::newRow("16 bits, other order")
            << with(rgb16, Order::mostFirst) << QByteArray::fromHex("8401") << qRgb(132, 130, 8);
        QTest::newRow("15 bits") << rgb15 << QByteArray::fromHex("00fc") << qRgb(255, 0, 0);
        // 1023, 512 and 4 of 1023 in 0x3ff80004.
        QTest::newRow("30 bits") << rgb30 << QByteArray::fromHex("0400f83f") << qRgb(255, 128, 1);
        QTest::newRow("30 bits, other order")
            << with(rgb30, Order::mostFirst) << QByteArray::fromHex("3ff80004") << qRgb(255, 128, 1);
    }
    void pixelsOfEachLayoutAreOpaqueColors() {
        QFETCH(X11PixelLayout, layout);
        QFETCH(QByteArray, bytes);
        QFETCH(QRgb, color);
        QCOMPARE(QString::number(converted(layout, bytes), 16), QString::number(color, 16));
    }

    void aColorWithoutAPlaceIsMissing() {
        X11PixelLayout layout = rgb32;
        layout.greenMask = 0;
        QCOMPARE(converted(layout, QByteArray::fromHex("30201000")), qRgb(0x10, 0, 0x30));
    }

    void linesEndAtTheirPadding() {
        QCOMPARE(rgb32.bytesPerLine(3), std::size_t{12});
        QCOMPARE(rgb16.bytesPerLine(3), std::size_t{8});
        QCOMPARE(packed(rgb32).bytesPerLine(3), std::size_t{12});
        X11PixelLayout tight = packed(rgb32);
        tight.linePadding = 8;
        QCOMPARE(tight.bytesPerLine(3), std::size_t{9});
    }

    void rowsGoWhereTheyBelong() {
        // Three pixels a row, and a padding that is never looked at.
        const QByteArray bytes = QByteArray::fromHex("00f8e0071f00aaaa"
                                                     "ffff0000ffffbbbb");
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(Qt::magenta);
        rgb16.convert(reinterpret_cast<const std::uint8_t*>(bytes.constData()), picture);
        const QRgb white = qRgb(255, 255, 255);
        const QList<QList<QRgb>> wanted{{qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255)},
                                        {white, qRgb(0, 0, 0), white}};
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                QCOMPARE(picture.pixel(x, y), wanted[y][x]);
        }
    }
};

QTEST_GUILESS_MAIN(X11PixelLayoutTest)
#include "X11PixelLayoutTest.moc"
