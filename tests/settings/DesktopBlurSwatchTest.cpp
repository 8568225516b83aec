#include "settings/DesktopBlurSwatchItem.h"

#include <QColor>
#include <QTest>

using namespace zelmo;

namespace {

int distance(const QColor& one, const QColor& other) {
    return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
           std::abs(one.blue() - other.blue());
}

} // namespace

class DesktopBlurSwatchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatLiesOnTheDesktopIsToBeTold_data() { sizes(); }
    void whatLiesOnTheDesktopIsToBeTold() {
        QFETCH(QSize, size);
        const QImage picture = blurredDesktop(size);
        QCOMPARE(picture.size(), size);
        const auto at = [&](double x, double y) {
            return picture.pixelColor(static_cast<int>(x * size.width()), static_cast<int>(y * size.height()));
        };
        const QColor lightWindow = at(0.25, 0.5);
        const QColor darkWindow = at(0.7, 0.65);
        QVERIFY(lightWindow.lightness() > darkWindow.lightness() + 60);
        QVERIFY(lightWindow.saturation() < 40);
        // The wallpaper goes from blue to orange, and stays as colourful as the material makes it.
        const QColor upperLeft = at(0.03, 0.3);
        const QColor lowerRight = at(0.97, 0.95);
        QVERIFY(upperLeft.blue() > upperLeft.red() + 60);
        QVERIFY(lowerRight.red() > lowerRight.blue() + 40);
        // Dark enough for light text.
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                QVERIFY(picture.pixelColor(x, y).lightness() < 180);
        }
    }

    void nothingHasAnEdge_data() { sizes(); }
    void nothingHasAnEdge() {
        QFETCH(QSize, size);
        const QImage picture = blurredDesktop(size);
        // The windows differ by some hundred steps from what is beside them.
        const int steepest = 90 * 132 / size.width();
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 1; x < size.width(); ++x)
                QVERIFY(distance(picture.pixelColor(x - 1, y), picture.pixelColor(x, y)) <= steepest);
        }
    }

    void theSamePictureIsSharperAtMorePixels() {
        const QImage one = blurredDesktop({132, 74});
        const QImage two =
            blurredDesktop({264, 148}).scaled(one.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        for (int y = 4; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x)
                QVERIFY(distance(one.pixelColor(x, y), two.pixelColor(x, y)) < 30);
        }
    }

    void nothingHasNoPicture() { QVERIFY(blurredDesktop({}).isNull()); }

private:
    static void sizes() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("one pixel to the point") << QSize(132, 74);
        QTest::newRow("two") << QSize(264, 148);
    }
};

QTEST_GUILESS_MAIN(DesktopBlurSwatchTest)
#include "DesktopBlurSwatchTest.moc"
