#include "iconart/Shadow.h"
#include "iconart/BlurPlane.h"

#include <QTest>

#include <algorithm>

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
            BlurPlane plane(1000, 3);
            for (int y = 0; y < 3; ++y)
                std::fill_n(plane.row(y), 1000, std::uint16_t{2040});
            plane.blur(width);
            QVERIFY2(*std::max_element(plane.row(0), plane.row(2) + 1000) <= 2040, qPrintable(QString::number(width)));
        }
        for (int width = 1; width < 60; width += 2) {
            BlurPlane plane(200, 200);
            std::fill_n(plane.row(0), 200 * 200, std::uint16_t{2040});
            plane.blur(width);
            QCOMPARE(plane.row(100)[100], std::uint16_t{2040});
        }
    }

    // A point becomes as wide as three boxes and the same to all sides, whatever the sides of the plane.
    void aPointSpreadsEvenly() {
        BlurPlane plane(120, 90);
        plane.row(40)[50] = 2000;
        plane.blur(5);
        std::uint16_t edge = 0;
        for (int i = 0; i <= 6; ++i) {
            QCOMPARE(plane.row(40)[50 - i], plane.row(40)[50 + i]);
            QCOMPARE(plane.row(40 - i)[50], plane.row(40 + i)[50]);
            QVERIFY(std::abs(plane.row(40 + i)[50] - plane.row(40)[50 + i]) <= 1);
            edge = std::max(edge, plane.row(40)[57 + i]);
        }
        QCOMPARE(edge, std::uint16_t{0});
        // The middle of three boxes of 5 holds 19 of 125 parts in each direction.
        QVERIFY(std::abs(plane.row(40)[50] - 2000 * 19 * 19 / (125 * 125)) <= 3);
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
