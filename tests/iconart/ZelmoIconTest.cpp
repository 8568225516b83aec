#include "iconart/ZelmoIconCanvas.h"
#include "iconart/ZelmoIconFactory.h"
#include "support/CatalogFakes.h"
#include "support/EndsTheProgram.h"

#include <QPainter>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr std::array styles{AppIconStyle::mosaic, AppIconStyle::aurora, AppIconStyle::stack, AppIconStyle::spark};

QColor srgb(double red, double green, double blue, double opacity = 1) {
    return QColor::fromRgbF(float(red), float(green), float(blue), float(opacity));
}

QImage drawn(AppIconStyle style, QSize size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    ZelmoIconCanvas(style).paint(painter, image.rect());
    return image;
}

// The mean difference of a channel, in steps of 255.
double difference(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor left = a.pixelColor(x, y);
            const QColor right = b.pixelColor(x, y);
            sum += std::abs(left.red() - right.red()) + std::abs(left.green() - right.green()) +
                   std::abs(left.blue() - right.blue()) + std::abs(left.alpha() - right.alpha());
        }
    }
    return sum / 4 / a.width() / a.height();
}

bool isNear(const QColor& a, const QColor& b, int tolerance = 4) {
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance && std::abs(a.alpha() - b.alpha()) <= tolerance;
}

} // namespace

class ZelmoIconTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachStyleHasItsGround() {
        const std::array<std::array<QColor, 3>, 4> grounds{
            {{srgb(0.95, 0.98, 1.00), srgb(0.58, 0.74, 0.95), srgb(0.22, 0.36, 0.62)},
             {srgb(0.97, 0.91, 0.68), srgb(0.60, 0.86, 0.78), srgb(0.39, 0.49, 0.90)},
             {srgb(0.16, 0.21, 0.33), srgb(0.24, 0.42, 0.58), srgb(0.48, 0.74, 0.72)},
             {srgb(0.98, 0.72, 0.45), srgb(0.94, 0.42, 0.55), srgb(0.38, 0.32, 0.78)}}};
        for (std::size_t i = 0; i < styles.size(); ++i) {
            QCOMPARE(ZelmoIconCanvas::background(styles[i]), grounds[i]);
            // On the screen: a quarter of the way, where no mark is.
            const QImage image = drawn(styles[i], {512, 512});
            const QColor first = grounds[i][0];
            const QColor second = grounds[i][1];
            const double way = 2 * 60.5 / 512;
            const QColor expected = srgb(first.redF() + way * (second.redF() - first.redF()),
                                         first.greenF() + way * (second.greenF() - first.greenF()),
                                         first.blueF() + way * (second.blueF() - first.blueF()));
            QVERIFY2(isNear(image.pixelColor(60, 60), expected), qPrintable(image.pixelColor(60, 60).name()));
        }
    }

    void theMarksHaveTheirColors() {
        QCOMPARE(ZelmoIconCanvas::auroraTile(0), srgb(0.37, 0.78, 1.00));
        QCOMPARE(ZelmoIconCanvas::auroraTile(1), srgb(0.96, 0.58, 0.44));
        QCOMPARE(ZelmoIconCanvas::auroraTile(2), srgb(0.62, 0.90, 0.75));
        QCOMPARE(ZelmoIconCanvas::auroraTile(3), srgb(1, 1, 1, 0.78));
        QCOMPARE(ZelmoIconCanvas::stackTile(0), (std::array{srgb(0.92, 0.54, 0.45), srgb(0.96, 0.76, 0.44)}));
        QCOMPARE(ZelmoIconCanvas::stackTile(1), (std::array{srgb(0.46, 0.70, 0.96), srgb(0.40, 0.88, 0.74)}));
        QCOMPARE(ZelmoIconCanvas::stackTile(2), (std::array{srgb(0.74, 0.64, 0.98), srgb(0.44, 0.52, 0.94)}));
        // A tile of the aurora mark stands at its place.
        QVERIFY(isNear(drawn(AppIconStyle::aurora, {500, 500}).pixelColor(250 - 70, 250 - 70), srgb(0.37, 0.78, 1.00)));
        // The last card of the stack lies on top, turned and lowered.
        const QColor card = drawn(AppIconStyle::stack, {500, 500}).pixelColor(250, 250 + 40);
        QVERIFY2(isNear(card, srgb(0.59, 0.58, 0.96), 6), qPrintable(card.name()));
    }

    void aTileThatDoesNotExistEndsTheProgram() {
        QVERIFY(endsTheProgram([] { ZelmoIconCanvas::auroraTile(4); }));
        QVERIFY(endsTheProgram([] { ZelmoIconCanvas::auroraTile(-1); }));
        QVERIFY(endsTheProgram([] { ZelmoIconCanvas::stackTile(3); }));
        QVERIFY(endsTheProgram([] { ZelmoIconCanvas::stackTile(-1); }));
        QVERIFY(!endsTheProgram([] { ZelmoIconCanvas::stackTile(2); }));
    }

    void theCornersAreRoundAndTheShadowFallsDown() {
        for (const AppIconStyle style : styles) {
            const QImage image = drawn(style, {512, 600});
            // The square is in the middle: 44 pixels of shadow at most above and below.
            QCOMPARE(image.pixelColor(2, 46).alpha() > 128, false);
            QCOMPARE(image.pixelColor(256, 46).alpha(), 255);
            QCOMPARE(image.pixelColor(256, 554).alpha(), 255);
            const int above = image.pixelColor(256, 43 - 4).alpha();
            const int below = image.pixelColor(256, 556 + 4).alpha();
            QVERIFY(below > above);
            QVERIFY(below > 10);
            // Of black at a fifth, it is nowhere darker than that.
            QVERIFY(below <= 51);
            QCOMPARE(image.pixelColor(256, 599).alpha(), 0);
        }
    }

    void theEdgeIsBrighterAtTheTop() {
        const QImage image = drawn(AppIconStyle::stack, {500, 500});
        const int top = image.pixelColor(250, 1).lightness() - image.pixelColor(250, 8).lightness();
        const int bottom = image.pixelColor(250, 498).lightness() - image.pixelColor(250, 491).lightness();
        QVERIFY2(top > 60, qPrintable(QString::number(top)));
        QVERIFY2(bottom < 30, qPrintable(QString::number(bottom)));
    }

    void atEverySizeItIsTheSamePicture_data() {
        QTest::addColumn<int>("side");
        for (const int side : {16, 32, 48, 128, 256})
            QTest::addRow("%d", side) << side;
    }
    void atEverySizeItIsTheSamePicture() {
        QFETCH(int, side);
        for (const AppIconStyle style : styles) {
            const QImage large =
                drawn(style, QSize(side, side) * 4).scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            const double mean = difference(drawn(style, {side, side}), large);
            QVERIFY2(mean < 6, qPrintable(QStringLiteral("%1 %2").arg(rawValue(style)).arg(mean)));
        }
    }

    void theFourLookDifferent() {
        for (std::size_t i = 0; i < styles.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j)
                QVERIFY(difference(drawn(styles[i], {64, 64}), drawn(styles[j], {64, 64})) > 12);
        }
    }

    void theFactoryTakesTheStoredStyle_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("style");
        QTest::newRow("nothing") << QString() << int(AppIconStyle::mosaic);
        QTest::newRow("a style") << QStringLiteral("spark") << int(AppIconStyle::spark);
        QTest::newRow("an unknown word") << QStringLiteral("Spark") << int(AppIconStyle::mosaic);
    }
    void theFactoryTakesTheStoredStyle() {
        QFETCH(QString, stored);
        QFETCH(int, style);
        FakeStorage storage;
        if (!stored.isEmpty())
            storage.values = {{QStringLiteral("appIconStyle"), stored}};
        const Preferences preferences(storage);
        QImage icon = ZelmoIconFactory::appIcon(256, preferences);
        QCOMPARE(icon.size(), QSize(512, 512));
        QCOMPARE(icon.devicePixelRatio(), 2.0);
        QCOMPARE(icon, ZelmoIconFactory::appIcon(256, preferences, static_cast<AppIconStyle>(style)));
        icon.setDevicePixelRatio(1);
        QVERIFY(difference(icon, drawn(static_cast<AppIconStyle>(style), {512, 512})) < 0.5);
    }

    void aStyleThatIsGivenCountsBeforeTheStoredOne() {
        FakeStorage storage;
        storage.values = {{QStringLiteral("appIconStyle"), QStringLiteral("spark")}};
        const Preferences preferences(storage);
        QVERIFY(ZelmoIconFactory::appIcon(32, preferences, AppIconStyle::aurora) !=
                ZelmoIconFactory::appIcon(32, preferences));
    }

    void noSizeMakesNoIcon() {
        FakeStorage storage;
        const Preferences preferences(storage);
        QVERIFY(ZelmoIconFactory::appIcon(0, preferences).isNull());
        QVERIFY(ZelmoIconFactory::appIcon(-4, preferences).isNull());
    }
};

QTEST_GUILESS_MAIN(ZelmoIconTest)
#include "ZelmoIconTest.moc"
