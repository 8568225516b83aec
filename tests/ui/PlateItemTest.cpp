#include "ui/PlateItem.h"

#include "ui/PlateCache.h"

#include <QQuickWindow>
#include <QSGTexture>
#include <QTest>

using namespace zelmo;

namespace {

constexpr int side = 60;

// Plates side by side in a window.
class Plates {
public:
    Plates() {
        window.setColor(Qt::black);
        window.resize(400, 100);
    }
    PlateItem& add(int x, const QColor& color) {
        items.push_back(std::make_unique<PlateItem>());
        PlateItem& item = *items.back();
        item.setParentItem(window.contentItem());
        item.setPosition({static_cast<qreal>(x), 20});
        item.setSize({side, side});
        item.setProperty("radius", side / 2.0);
        item.setProperty("colors", QVariant::fromValue(QList<QColor>{color}));
        return item;
    }
    QColor colorAt(int x, int y) { return window.grabWindow().pixelColor(x, y); }

    QQuickWindow window;
    std::vector<std::unique_ptr<PlateItem>> items;
};

} // namespace

class PlateItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPlateIsSeenWhereItStands() {
        Plates plates;
        PlateItem& item = plates.add(10, Qt::red);
        plates.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&plates.window));
        QCOMPARE(plates.colorAt(40, 50), QColor(Qt::red));
        QCOMPARE(plates.colorAt(12, 22), QColor(Qt::black));
        item.setProperty("colors", QVariant::fromValue(QList<QColor>{Qt::green}));
        QCOMPARE(plates.colorAt(40, 50), QColor(Qt::green));
        item.setSize({100, side});
        QCOMPARE(plates.colorAt(95, 50), QColor(Qt::green));
        item.setProperty("colors", QVariant::fromValue(QList<QColor>{}));
        QCOMPARE(plates.colorAt(40, 50), QColor(Qt::black));
    }

    void theShadowIsOutsideOfTheItem() {
        Plates plates;
        plates.window.setColor(Qt::white);
        PlateItem& item = plates.add(10, Qt::red);
        plates.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&plates.window));
        QCOMPARE(plates.colorAt(40, 83), QColor(Qt::white));
        item.setProperty("shadowOpacity", 0.8);
        item.setProperty("shadowRadius", 4.0);
        item.setProperty("shadowOffset", 4.0);
        QVERIFY(plates.colorAt(40, 83).lightness() < 200);
        QCOMPARE(plates.colorAt(40, 50), QColor(Qt::red));
    }

    void equalPlatesShareOnePicture() {
        Plates plates;
        plates.add(10, Qt::red);
        plates.add(90, Qt::red);
        PlateItem& third = plates.add(170, Qt::blue);
        plates.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&plates.window));
        QCOMPARE(plates.colorAt(120, 50), QColor(Qt::red));
        PlateCache& cache = PlateCache::of(plates.window);
        const qsizetype one = side * side * 4;
        QCOMPARE(cache.bytes(), 2 * one);
        const auto texture = cache.texture({side, side}, 1, plates.items[0]->style());
        QCOMPARE(cache.texture({side, side}, 1, plates.items[1]->style()), texture);
        QVERIFY(cache.texture({side, side}, 1, third.style()) != texture);
        // Another scale is another picture.
        QCOMPARE(cache.picture({side, side}, 2, third.style()).width(), 2 * side);
    }

    void theCacheHasABound() {
        QQuickWindow window;
        PlateCache& cache = PlateCache::of(window);
        QCOMPARE(&PlateCache::of(window), &cache);
        for (int i = 0; i < 100; ++i)
            cache.picture({500, 300.0 + i}, 1, {.fill = {{Qt::red}}});
        QVERIFY(cache.bytes() <= PlateCache::byteLimit);
        QVERIFY(cache.bytes() > PlateCache::byteLimit / 2);
    }
};

QTEST_MAIN(PlateItemTest)
#include "PlateItemTest.moc"
