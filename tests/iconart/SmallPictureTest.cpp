#include "iconart/SmallPicture.h"

#include <QRandomGenerator>
#include <QTest>

using namespace zelmo;

namespace {

QImage noise(QSize size) {
    QRandomGenerator random(3);
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, 0xff000000U | random.generate());
    }
    return picture;
}

// Of a square of pixels, one channel.
int mean(const QImage& picture, const QRect& square, int (*channel)(QRgb)) {
    int sum = 0;
    for (int y = square.top(); y <= square.bottom(); ++y) {
        for (int x = square.left(); x <= square.right(); ++x)
            sum += channel(picture.pixel(x, y));
    }
    const int count = square.width() * square.height();
    return (sum + count / 2) / count;
}

} // namespace

class SmallPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachPixelIsTheMeanOfItsSquare_data() {
        QTest::addColumn<int>("factor");
        QTest::addColumn<QSize>("small");
        QTest::newRow("2") << 2 << QSize(35, 26);
        QTest::newRow("8, with a rest at the edges") << 8 << QSize(8, 6);
        QTest::newRow("the largest") << PictureReduction::largestFactor << QSize(4, 3);
    }
    void eachPixelIsTheMeanOfItsSquare() {
        QFETCH(int, factor);
        const QImage picture = noise({70, 53});
        const SmallPicture reduced = SmallPicture::of(picture, factor);
        QCOMPARE(reduced.size, picture.size());
        QTEST(reduced.pixels.size(), "small");
        for (int y = 0; y < reduced.pixels.height(); ++y) {
            for (int x = 0; x < reduced.pixels.width(); ++x) {
                const QRect square(x * factor, y * factor, factor, factor);
                const QRgb wanted =
                    qRgb(mean(picture, square, qRed), mean(picture, square, qGreen), mean(picture, square, qBlue));
                QCOMPARE(reduced.pixels.pixel(x, y), wanted);
            }
        }
    }

    void theLightestPictureFitsTheSums() {
        QImage white({32, 32}, QImage::Format_RGB32);
        white.fill(Qt::white);
        const SmallPicture reduced = SmallPicture::of(white, PictureReduction::largestFactor);
        QCOMPARE(reduced.pixels.pixel(1, 1), qRgb(255, 255, 255));
    }

    void itMattersNotInHowManyPiecesItComes() {
        const QImage picture = noise({70, 53});
        const SmallPicture atOnce = SmallPicture::of(picture, 8);
        for (const int rows : {1, 3, 8, 20}) {
            PictureReduction reduction(picture.size(), 8);
            for (int top = 0; top < picture.height(); top += rows)
                reduction.add(picture.copy(0, top, picture.width(), std::min(rows, picture.height() - top)));
            QCOMPARE(reduction.take().pixels, atOnce.pixels);
        }
    }

    void aPictureSmallerThanASquareIsOnePixel() {
        const QImage picture = noise({5, 3});
        const SmallPicture reduced = SmallPicture::of(picture, 8);
        QCOMPARE(reduced.pixels.size(), QSize(1, 1));
        QCOMPARE(qRed(reduced.pixels.pixel(0, 0)), mean(picture, picture.rect(), qRed));
        QCOMPARE(reduced.part(picture.rect()).pixel(4, 2), reduced.pixels.pixel(0, 0));
    }

    void aPartIsThatOfTheWhole() {
        const QImage picture = noise({240, 135});
        for (const int factor : {1, 4}) {
            const SmallPicture reduced = SmallPicture::of(picture, factor);
            const QImage whole = reduced.part(picture.rect());
            QCOMPARE(whole.size(), picture.size());
            for (const QRect area : {QRect(17, 9, 100, 51), QRect(0, 134, 240, 1), QRect(239, 0, 1, 135)})
                QCOMPARE(reduced.part(area), whole.copy(area));
        }
    }

    void itGoesEvenlyFromPixelToPixel() {
        QImage ramp({64, 8}, QImage::Format_RGB32);
        for (int x = 0; x < 64; ++x) {
            for (int y = 0; y < 8; ++y)
                ramp.setPixel(x, y, qRgb(4 * x, 0, 0));
        }
        const QImage whole = SmallPicture::of(ramp, 8).part(ramp.rect());
        for (int x = 4; x < 60; ++x)
            QVERIFY(std::abs(qRed(whole.pixel(x, 4)) - 4 * x) <= 2);
    }

    void nothingHasNoPicture() {
        QVERIFY(SmallPicture::of({}, 8).isNull());
        QVERIFY(SmallPicture().isNull());
    }
};

QTEST_GUILESS_MAIN(SmallPictureTest)
#include "SmallPictureTest.moc"
