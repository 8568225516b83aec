#include "ui/BackgroundItem.h"

#include "iconart/Material.h"
#include "ui/WallFixture.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QList<QColor> threeColors{rgb(1, 0.2, 0.1), rgb(0.1, 0.9, 0.3), rgb(0.2, 0.1, 1)};

// Of this size, beginning at a place of its own in a window.
class Shown {
public:
    explicit Shown(QSize size) {
        item.setParentItem(window.contentItem());
        item.setSize(size);
        item.setColors(threeColors);
        window.setColor(Qt::black);
        window.resize(size);
        window.show();
    }
    QImage picture() {
        return QTest::qWaitForWindowExposed(&window) ? window.grabWindow().convertToFormat(QImage::Format_RGB32)
                                                     : QImage();
    }

    QQuickWindow window;
    BackgroundItem item;
};

// The first pixel in which two pictures are farther apart than this.
QString differences(const QImage& a, const QImage& b, int tolerance) {
    if (a.size() != b.size() || a.isNull())
        return QStringLiteral("sizes");
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (!isNear(a.pixelColor(x, y), b.pixelColor(x, y), tolerance))
                return QStringLiteral("%1, %2").arg(x).arg(y);
        }
    }
    return {};
}

// What the gradient is to be at a point: as far along as its foot on the way from corner to corner.
QColor colorAt(double x, double y, QSize size) {
    const double along = (x * size.width() + y * size.height()) /
                         (double(size.width()) * size.width() + double(size.height()) * size.height()) * 2;
    const QColor& from = threeColors[along < 1 ? 0 : 1];
    QColor to = threeColors[along < 1 ? 1 : 2];
    to.setAlphaF(static_cast<float>(along < 1 ? along : along - 1));
    return over(from, to);
}

} // namespace

class BackgroundItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theGradientRunsFromCornerToCorner_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("wide") << QSize(420, 230);
        QTest::newRow("high") << QSize(210, 400);
        QTest::newRow("lower than a band") << QSize(200, 40);
    }
    void theGradientRunsFromCornerToCorner() {
        QFETCH(QSize, size);
        Shown shown(size);
        for (const bool isMirrored : {false, true}) {
            shown.item.setMirrored(isMirrored);
            const QImage picture = shown.picture();
            QCOMPARE(picture.size(), size);
            for (int y = 0; y < size.height(); y += 3) {
                for (int x = 0; x < size.width(); x += 7) {
                    const double fromStart = (isMirrored ? size.width() - 1 - x : x) + 0.5;
                    QVERIFY2(isNear(picture.pixelColor(x, y), colorAt(fromStart, y + 0.5, size), 3),
                             qPrintable(QStringLiteral("%1, %2 %3").arg(x).arg(y).arg(isMirrored)));
                }
            }
        }
    }

    void aPartThroughTheMaterialIsOfWhatIsDrawnThere_data() {
        QTest::addColumn<QRect>("part");
        QTest::newRow("everything") << QRect(0, 0, 400, 300);
        QTest::newRow("across bands") << QRect(30, 50, 200, 150);
        QTest::newRow("beyond the edges") << QRect(-20, 250, 500, 100);
        QTest::newRow("one pixel") << QRect(399, 299, 1, 1);
    }
    void aPartThroughTheMaterialIsOfWhatIsDrawnThere() {
        QFETCH(QRect, part);
        MaterialStyle unblurred = MaterialStyle::ultraThin();
        unblurred.blurRadius = 0;
        Shown shown({400, 300});
        for (const bool isMirrored : {false, true}) {
            shown.item.setMirrored(isMirrored);
            const QImage picture = shown.picture();
            const QImage wanted = throughMaterial(picture.copy(part & picture.rect()), 1, unblurred);
            QCOMPARE(differences(shown.item.throughMaterialAt(part, 1), wanted, 2), QString());
        }
        QVERIFY(shown.item.throughMaterialAt(QRect(400, 0, 10, 10), 1).isNull());
    }

    void aChangeIsDrawn() {
        Shown shown({100, 80});
        QVERIFY(isNear(shown.picture().pixelColor(0, 0), threeColors[0], 3));
        shown.item.setColors({Qt::green});
        QCOMPARE(shown.picture().pixelColor(50, 40), QColor(Qt::green));
        shown.item.setColors({});
        QCOMPARE(shown.picture().pixelColor(50, 40), QColor(Qt::black));
        shown.item.setColors({Qt::red});
        shown.item.setSize({50, 40});
        QCOMPARE(shown.picture().pixelColor(49, 39), QColor(Qt::red));
        QCOMPARE(shown.picture().pixelColor(51, 39), QColor(Qt::black));
    }

    void theDesktopIsSeenThroughTheMaterial() {
        Shown shown({400, 300});
        DesktopBackdrop backdrop;
        shown.item.setBackdrop(&backdrop);
        // As long as there is none, the gradient is in its place.
        QVERIFY(!shown.item.showsDesktop());
        const QImage gradient = shown.picture();
        QImage desktop(400, 300, QImage::Format_RGB32);
        desktop.fill(rgb(0.9, 0.4, 0.2));
        for (int y = 0; y < 300; ++y) {
            for (int x = 200; x < 400; ++x)
                desktop.setPixelColor(x, y, x / 10 % 2 ? QColor(Qt::black) : QColor(Qt::blue));
        }
        backdrop.take(SmallPicture::of(desktop, DesktopBackdrop::reduction(1)), 1);
        QVERIFY(shown.item.showsDesktop());
        const QImage seen = shown.picture();
        QVERIFY(!differences(seen, gradient, 8).isEmpty());
        QCOMPARE(differences(backdrop.picture(), seen, 1), QString());
        // Not as it is, but red where it is red; and its stripes have run together.
        QVERIFY(seen.pixelColor(20, 150) != desktop.pixelColor(20, 150));
        QVERIFY(seen.pixelColor(20, 150).red() > seen.pixelColor(20, 150).blue());
        QVERIFY(isNear(seen.pixelColor(335, 150), seen.pixelColor(345, 150), 6));
        QVERIFY(seen.pixelColor(340, 150).blue() > seen.pixelColor(340, 150).red());
        // Which way texts run makes no difference to it.
        shown.item.setMirrored(true);
        QCOMPARE(differences(shown.picture(), seen, 0), QString());
        backdrop.release();
        shown.item.setMirrored(false);
        QCOMPARE(differences(shown.picture(), gradient, 0), QString());
    }

    void theDesktopCoversAScreenThatHasGrown() {
        Shown shown({200, 150});
        DesktopBackdrop backdrop;
        shown.item.setBackdrop(&backdrop);
        QImage desktop(200, 150, QImage::Format_RGB32);
        desktop.fill(rgb(0.9, 0.4, 0.2));
        backdrop.take(SmallPicture::of(desktop, DesktopBackdrop::reduction(1)), 1);
        const QColor seen = shown.picture().pixelColor(100, 75);
        const QColor seenAgain = shown.item.throughMaterialAt({90, 65, 20, 20}, 1).pixelColor(10, 10);
        for (const QSize size : {QSize(400, 150), QSize(150, 400), QSize(400, 300)}) {
            shown.window.resize(size);
            shown.item.setSize(size);
            const QImage picture = shown.picture();
            QCOMPARE(picture.size(), size);
            for (const QPoint corner : {QPoint(2, 2), QPoint(size.width() - 3, 2), QPoint(2, size.height() - 3),
                                        QPoint(size.width() - 3, size.height() - 3)})
                QVERIFY(isNear(picture.pixelColor(corner), seen, 12));
            const QRect last(size.width() - 30, size.height() - 20, 30, 20);
            const QImage part = shown.item.throughMaterialAt(last, 1);
            QCOMPARE(part.size(), last.size());
            QVERIFY(isNear(part.pixelColor(25, 15), seenAgain, 12));
        }
    }

    // At one and a half pixels to the point, half a pixel may lie beyond the screen.
    void theDesktopIsNotStretchedForAPixel() {
        Shown shown({200, 150});
        DesktopBackdrop backdrop;
        shown.item.setBackdrop(&backdrop);
        QImage desktop(200, 150, QImage::Format_RGB32);
        desktop.fill(Qt::blue);
        for (int y = 0; y < 150; ++y) {
            for (int x = 100; x < 200; ++x)
                desktop.setPixelColor(x, y, Qt::red);
        }
        backdrop.take(SmallPicture::of(desktop, DesktopBackdrop::reduction(1)), 1);
        const QImage seen = shown.picture();
        shown.window.resize(201, 150);
        shown.item.setSize({201, 150});
        QCOMPARE(differences(shown.picture().copy(seen.rect()), seen, 0), QString());
    }

    void theWallShowsTheDesktopUntilItIsPutAway() {
        WallFixture fixture(0);
        const QImage without = fixture.settle();
        fixture.desktop.color = rgb(0.1, 0.7, 0.2);
        fixture.content.prepare(*fixture.window.screen());
        const QColor seen = fixture.settle().pixelColor(5, 5);
        QVERIFY(seen.green() > seen.red() + 20 && seen.green() > seen.blue() + 20);
        fixture.content.putAway();
        QCOMPARE(differences(fixture.settle(), without, 0), QString());
        // A desktop that can't be seen is none.
        fixture.desktop.color = QColor();
        fixture.content.prepare(*fixture.window.screen());
        QCOMPARE(fixture.desktop.captures, 2);
        QCOMPARE(fixture.settle().pixelColor(5, 5), without.pixelColor(5, 5));
    }

    void theDesktopIsOnlyLookedAtToBeShown() {
        WallFixture fixture(0, {{QStringLiteral("launcherBackgroundStyle"), QStringLiteral("candyPop")}});
        fixture.desktop.color = Qt::green;
        fixture.content.prepare(*fixture.window.screen());
        QCOMPARE(fixture.desktop.captures, 0);
    }
};

QTEST_MAIN(BackgroundItemTest)
#include "BackgroundItemTest.moc"
