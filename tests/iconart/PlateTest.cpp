#include "iconart/Plate.h"

#include <QTest>

using namespace zelmo;

namespace {

const QColor left(200, 0, 0);
const QColor right(0, 0, 200);

} // namespace

class PlateTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aGradientRunsAsItIsTold_data() {
        QTest::addColumn<int>("direction");
        QTest::addColumn<QPoint>("first");
        QTest::addColumn<QPoint>("last");
        QTest::newRow("diagonal") << int(GradientDirection::diagonal) << QPoint(0, 0) << QPoint(99, 59);
        QTest::newRow("down") << int(GradientDirection::down) << QPoint(50, 0) << QPoint(50, 59);
        QTest::newRow("across") << int(GradientDirection::across) << QPoint(0, 30) << QPoint(99, 30);
    }
    void aGradientRunsAsItIsTold() {
        QFETCH(int, direction);
        QFETCH(QPoint, first);
        QFETCH(QPoint, last);
        const QImage image =
            paintPlate({100, 60}, 1, {.fill = {{left, right}, static_cast<GradientDirection>(direction)}});
        QCOMPARE(image.size(), QSize(100, 60));
        QVERIFY(image.pixelColor(first).red() > 195);
        QVERIFY(image.pixelColor(last).blue() > 195);
        QVERIFY(std::abs(image.pixelColor(50, 30).red() - 100) < 5);
    }

    void mirroredItRunsFromTheRight() {
        for (const auto direction : {GradientDirection::diagonal, GradientDirection::across}) {
            const QImage image = paintPlate({100, 60}, 1, {.fill = {{left, right}, direction}, .isMirrored = true});
            QVERIFY(image.pixelColor(99, 0).red() > 195);
            QVERIFY(image.pixelColor(0, 59).blue() > 195);
        }
        const QImage down =
            paintPlate({100, 60}, 1, {.fill = {{left, right}, GradientDirection::down}, .isMirrored = true});
        QVERIFY(down.pixelColor(50, 0).red() > 195);
    }

    void threeStopsStandEvenly() {
        const QImage image =
            paintPlate({101, 10}, 1, {.fill = {{Qt::red, Qt::green, Qt::blue}, GradientDirection::across}});
        QVERIFY(image.pixelColor(50, 5).green() > 250);
    }

    void theStrokeLiesInsideTheEdge() {
        const QImage image =
            paintPlate({60, 40}, 2, {.fill = {{Qt::black}}, .stroke = {{Qt::white}}, .strokeWidth = 3});
        QCOMPARE(image.size(), QSize(120, 80));
        QCOMPARE(image.pixelColor(0, 40), QColor(Qt::white));
        QCOMPARE(image.pixelColor(5, 40), QColor(Qt::white));
        QCOMPARE(image.pixelColor(6, 40), QColor(Qt::black));
    }

    void cornersAreRoundAndACapsuleIsOne() {
        const QImage image = paintPlate({100, 40}, 1, {.radius = 100, .fill = {{Qt::white}}});
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        QCOMPARE(image.pixelColor(2, 6).alpha(), 0);
        QVERIFY(image.pixelColor(0, 20).alpha() > 128);
        QCOMPARE(image.pixelColor(50, 0).alpha(), 255);
    }

    void theShadowReachesIntoTheMargin() {
        const PlateStyle style{
            .radius = 10, .fill = {{Qt::white}}, .shadow = {.opacity = 0.5, .radius = 6, .offset = 4}};
        for (const double scale : {1.0, 2.0}) {
            const QImage image = paintPlate({60, 40}, scale, style);
            const int margin = plateMargin(style, scale);
            QCOMPARE(image.size(), QSize(int(60 * scale) + 2 * margin, int(40 * scale) + 2 * margin));
            const int middle = image.width() / 2;
            QVERIFY(image.pixelColor(middle, image.height() - margin + 1).alpha() >
                    image.pixelColor(middle, margin - 2).alpha());
            QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        }
    }

    void aStrokeAsWideAsThePlateFillsIt() {
        const QImage image = paintPlate({20, 10}, 1, {.radius = 3, .stroke = {{Qt::white}}, .strokeWidth = 6});
        QCOMPARE(image.pixelColor(10, 5), QColor(Qt::white));
        QCOMPARE(image.pixelColor(10, 0), QColor(Qt::white));
    }

    // However much of it is made of copies.
    void theShadowOfALargePlateIsThatOfItsShape_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("large both ways") << QSize(400, 300);
        QTest::newRow("wide") << QSize(401, 40);
        QTest::newRow("high") << QSize(40, 400);
        QTest::newRow("small") << QSize(50, 40);
    }
    void theShadowOfALargePlateIsThatOfItsShape() {
        QFETCH(QSize, size);
        const ShadowStyle style{.opacity = 0.5, .radius = 20, .offset = 7.5};
        const PlateStyle plate{.radius = 16, .fill = {{Qt::black}}};
        QCOMPARE(plateShadow(size, 16, style), shadowOf(paintPlate(size, 1, plate), style));
    }

    void withNothingToSeeThereIsNoPicture() {
        QVERIFY(paintPlate({60, 40}, 1, {}).isNull());
        QVERIFY(paintPlate({0, 40}, 1, {.fill = {{Qt::white}}}).isNull());
        QVERIFY(paintPlate({-3, 40}, 1, {.fill = {{Qt::white}}}).isNull());
        QCOMPARE(plateMargin({}, 2), 0);
    }

    void equalStylesHaveEqualHashes() {
        const PlateStyle style{.radius = 10, .fill = {{Qt::white, Qt::black}}, .shadow = {.opacity = 0.5}};
        PlateStyle other = style;
        QCOMPARE(qHash(other), qHash(style));
        other.fill.direction = GradientDirection::down;
        QVERIFY(other != style);
        QVERIFY(qHash(other) != qHash(style));
    }
};

QTEST_GUILESS_MAIN(PlateTest)
#include "PlateTest.moc"
