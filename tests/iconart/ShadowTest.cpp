#include "iconart/Shadow.h"
#include "iconart/BoxBlur.h"

#include <QTest>

#include <numeric>

using namespace zelmo;

namespace {

QImage square(int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

// Opacity down the middle column of the shadow alone.
double opacityBelow(const QImage& image, const ShadowStyle& style, int distance) {
    return image.pixelColor(image.width() / 2, image.height() - shadowMargin(style) - 1 + distance).alphaF();
}

} // namespace

class ShadowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPlainAreaKeepsItsValueHoweverWideTheBlur() {
        for (int width = 1; width < 400; width += 2) {
            std::vector<std::uint16_t> values(1000, 2040);
            std::vector<std::uint16_t> other(values.size());
            for (int pass = 0; pass < 6; ++pass) {
                boxBlur(values.data(), other.data(), static_cast<int>(values.size()), 1, width);
                values.swap(other);
            }
            QVERIFY2(*std::max_element(values.begin(), values.end()) <= 2040, qPrintable(QString::number(width)));
            if (width < 100)
                QCOMPARE(values[500], std::uint16_t{2040});
        }
    }

    void nothingIsLostBesideTheEnds() {
        std::vector<std::uint16_t> values(200, 0);
        values[100] = 2000;
        std::vector<std::uint16_t> other(values.size());
        boxBlur(values.data(), other.data(), 200, 1, 9);
        QVERIFY(std::abs(std::accumulate(other.begin(), other.end(), 0) - 2000) <= 9);
        QCOMPARE(other[96], other[104]);
        QCOMPARE(other[95], std::uint16_t{0});
        QCOMPARE(other[105], std::uint16_t{0});
    }

    void theShadowIsAsDarkAsItIsTold() {
        const ShadowStyle style{.opacity = 0.5, .radius = 4, .offset = 30};
        const QImage image = withShadow(square(60), style);
        QVERIFY(std::abs(opacityBelow(image, style, 15) - 0.5) < 0.01);
    }

    void itFallsBetweenTwoPixelsToo() {
        double last = 0;
        for (const double offset : {4.0, 4.25, 4.5, 4.75, 5.0}) {
            const ShadowStyle style{.opacity = 1, .radius = 2, .offset = offset};
            const double seen = opacityBelow(withShadow(square(40), style), style, 6);
            QVERIFY2(seen > last, qPrintable(QString::number(offset)));
            last = seen;
        }
    }

    void aShadowMayGoUpwards() {
        const ShadowStyle style{.opacity = 1, .radius = 0, .offset = -2.5};
        const QImage image = withShadow(square(20), style);
        const int top = shadowMargin(style);
        QCOMPARE(image.pixelColor(image.width() / 2, top - 2).alpha(), 255);
        QCOMPARE(image.pixelColor(image.width() / 2, top - 3).alpha(), 128);
    }

    void aWideShadowOfALargePictureStaysInBounds() {
        const ShadowStyle style{.opacity = 0.4, .radius = 75, .offset = 12.5};
        const QImage image = withShadow(square(500), style);
        QCOMPARE(image.width(), 500 + 2 * shadowMargin(style));
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    }
};

QTEST_GUILESS_MAIN(ShadowTest)
#include "ShadowTest.moc"
