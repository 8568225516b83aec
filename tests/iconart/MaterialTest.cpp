#include "iconart/Material.h"

#include <QPainter>
#include <QTest>

using namespace zelmo;

namespace {

QImage plain(const QColor& color, QSize size = {160, 120}) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

// Black on the left, white on the right.
QImage halves() {
    QImage image = plain(Qt::black);
    QPainter(&image).fillRect(80, 0, 80, 120, Qt::white);
    return image;
}

MaterialStyle blurOf(double radius) {
    return {.blurRadius = radius};
}

} // namespace

class MaterialTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPlainPictureStaysAsItIs() {
        for (const double radius : {0.0, 1.0, 7.0, 60.0, 500.0}) {
            const QImage seen = throughMaterial(plain(QColor(10, 200, 90)), 1, blurOf(radius));
            QCOMPARE(seen.size(), QSize(160, 120));
            for (const QPoint& place : {QPoint(0, 0), QPoint(159, 119), QPoint(80, 60), QPoint(0, 119)}) {
                const QColor color = seen.pixelColor(place);
                QVERIFY2(std::abs(color.red() - 10) <= 1 && std::abs(color.green() - 200) <= 1 &&
                             std::abs(color.blue() - 90) <= 1,
                         qPrintable(color.name()));
            }
        }
    }

    void anEdgeIsSpreadAsFarAsTheRadiusSays_data() {
        QTest::addColumn<double>("scale");
        QTest::newRow("1") << 1.0;
        QTest::newRow("2") << 2.0;
    }
    void anEdgeIsSpreadAsFarAsTheRadiusSays() {
        QFETCH(double, scale);
        const double radius = 20 / scale;
        const QImage seen = throughMaterial(halves(), scale, blurOf(radius));
        // A Gaussian of 10 pixels' deviation: 15.9 % of it lie beyond one deviation, 2.3 % beyond two.
        const auto share = [&](int x) { return qGray(seen.pixel(x, 60)) / 255.0; };
        QVERIFY(std::abs(share(80) - 0.5) < 0.06);
        QVERIFY(std::abs(share(70) - 0.159) < 0.06);
        QVERIFY(std::abs(share(90) - 0.841) < 0.06);
        QVERIFY(share(50) < 0.02);
        QVERIFY(share(110) > 0.98);
    }

    void colorsGetStrongerButNoBrighter() {
        const QColor pale(120, 140, 180);
        const QColor seen = throughMaterial(plain(pale), 1, {.saturation = 1.6}).pixelColor(50, 50);
        QVERIFY(seen.blue() > pale.blue() && seen.red() < pale.red());
        const auto brightness = [](const QColor& color) {
            return 0.2126 * color.red() + 0.7152 * color.green() + 0.0722 * color.blue();
        };
        QVERIFY(std::abs(brightness(seen) - brightness(pale)) < 1.5);
    }

    void theTintCoversItsShare() {
        const QColor seen =
            throughMaterial(plain(Qt::white), 1, {.tint = QColor::fromRgbF(0, 0, 0, 0.4F)}).pixelColor(50, 50);
        QCOMPARE(seen, QColor(153, 153, 153));
    }

    void lightTextIsReadableOnAWhiteDesktop() {
        const QColor seen = throughMaterial(plain(Qt::white), 1, MaterialStyle::ultraThin()).pixelColor(80, 60);
        QVERIFY2(seen.lightness() < 170, qPrintable(seen.name()));
    }

    void nothingMakesNothing() {
        QVERIFY(throughMaterial(QImage(), 1, MaterialStyle::ultraThin()).isNull());
        QCOMPARE(throughMaterial(plain(Qt::red, {1, 1}), 2, MaterialStyle::ultraThin()).size(), QSize(1, 1));
    }
};

QTEST_GUILESS_MAIN(MaterialTest)
#include "MaterialTest.moc"
