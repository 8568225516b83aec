#include "iconart/ContinuousRectangle.h"

#include <QTest>

#include <cmath>

using namespace zelmo;

namespace {

// How far down from the top side the outline is at this distance from the left side.
double depthAt(const QPainterPath& path, double x) {
    double inside = 50;
    double outside = -1;
    while (inside - outside > 1e-6) {
        const double middle = (inside + outside) / 2;
        (path.contains(QPointF(x, middle)) ? inside : outside) = middle;
    }
    return inside;
}

double circularDepth(double radius, double x) {
    return x >= radius ? 0 : radius - std::sqrt(radius * radius - (radius - x) * (radius - x));
}

} // namespace

class ContinuousRectangleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itFillsTheRectangle() {
        const QRectF rectangle(3, 4, 200, 100);
        const QRectF bounds = continuousRectangle(rectangle, 20).boundingRect();
        QVERIFY((bounds.topLeft() - rectangle.topLeft()).manhattanLength() < 1e-9);
        QVERIFY((bounds.bottomRight() - rectangle.bottomRight()).manhattanLength() < 1e-9);
    }

    void halfWayRoundACornerItMeetsTheCircle() {
        const double radius = 20;
        const double diagonal = radius * (1 - std::sqrt(0.5));
        const QPainterPath path = continuousRectangle(QRectF(0, 0, 200, 100), radius);
        QVERIFY(std::abs(depthAt(path, diagonal) - diagonal) < 0.02);
    }

    // A circle touches the side with its full curvature; this does so further out, with none.
    void itLeavesTheSideEarlierAndMoreGentlyThanACircle() {
        const double radius = 20;
        const QPainterPath path = continuousRectangle(QRectF(0, 0, 200, 100), radius);
        QVERIFY(depthAt(path, radius) > circularDepth(radius, radius) + 0.1);
        QVERIFY(depthAt(path, 1.4 * radius) > 0.001);
        QVERIFY(depthAt(path, 1.5 * radius) < 1e-4);
        // Its slope near the end falls faster than in proportion to the distance, as a curve without curvature there.
        const double far = depthAt(path, 1.2 * radius);
        const double near = depthAt(path, 1.35 * radius);
        QVERIFY(far > 6 * near);
    }

    void theFourCornersAreAlike() {
        const QRectF rectangle(0, 0, 120, 80);
        const QPainterPath path = continuousRectangle(rectangle, 30);
        for (const QTransform& turn : {QTransform::fromScale(-1, 1), QTransform::fromScale(1, -1)}) {
            const QPainterPath turned = turn.map(path.translated(-60, -40)).translated(60, 40);
            for (double x = 0.5; x < 120; x += 0.5)
                QVERIFY(std::abs(depthAt(turned, x) - depthAt(path, x)) < 1e-3);
        }
    }

    void aRadiusOfHalfTheSideMakesACircle_data() {
        QTest::addColumn<double>("radius");
        QTest::newRow("just so") << 25.0;
        QTest::newRow("more than there is room for") << 400.0;
    }
    void aRadiusOfHalfTheSideMakesACircle() {
        QFETCH(double, radius);
        const QPainterPath path = continuousRectangle(QRectF(0, 0, 200, 50), radius);
        for (double x = 0.25; x < 30; x += 0.25)
            QVERIFY(std::abs(depthAt(path, x) - circularDepth(25, x)) < 0.06);
    }

    void withoutARadiusTheCornersAreSharp() {
        for (const double radius : {0.0, -5.0})
            QVERIFY(continuousRectangle(QRectF(0, 0, 200, 50), radius).contains(QPointF(0.01, 0.01)));
        QVERIFY(continuousRectangle(QRectF(0, 0, 0, 50), 5).boundingRect().width() == 0);
    }
};

QTEST_GUILESS_MAIN(ContinuousRectangleTest)
#include "ContinuousRectangleTest.moc"
