#include "ui/MaterialItem.h"

#include "ui/SceneReading.h"

#include <QQuickWindow>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr QRect panelPlace(50, 40, 300, 150);
constexpr double darkness = 0.5;

// A panel of material on a background.
class Shown {
public:
    Shown() {
        background.setParentItem(window.contentItem());
        background.setSize(QSizeF(400, 300));
        background.setColors({rgb(0.8, 0.3, 0.1)});
        panel.setParentItem(window.contentItem());
        panel.setPosition(panelPlace.topLeft());
        panel.setSize(panelPlace.size());
        panel.setBackground(&background);
        panel.setProperty("radius", 32);
        window.setColor(Qt::black);
        window.resize(400, 300);
        window.show();
    }
    QImage picture() {
        return QTest::qWaitForWindowExposed(&window) ? window.grabWindow().convertToFormat(QImage::Format_RGB32)
                                                     : QImage();
    }
    QColor middle() { return picture().pixelColor(panelPlace.center()); }

    QQuickWindow window;
    BackgroundItem background;
    MaterialItem panel;
};

// Striped where the panel is, plain on the left of it.
QImage stripedDesktop() {
    QImage desktop(400, 300, QImage::Format_RGB32);
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x)
            desktop.setPixelColor(x, y, x < 150 || x / 8 % 2 ? rgb(0.1, 0.8, 0.2) : rgb(0.1, 0.2, 0.8));
    }
    return desktop;
}

} // namespace

class MaterialItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itDiffersFromWhatLiesBehindAndFollowsIt() {
        Shown shown;
        const QColor behind = shown.picture().pixelColor(5, 5);
        const QColor red = shown.middle();
        QVERIFY(!isNear(red, behind, 10));
        QVERIFY(red.red() > red.blue() + 30);
        // One colour behind is one colour in front.
        QVERIFY(isNear(shown.picture().pixelColor(100, 60), red));
        shown.background.setColors({rgb(0.1, 0.3, 0.8)});
        QVERIFY(shown.middle().blue() > shown.middle().red() + 30);
        QVERIFY(!isNear(shown.middle(), red, 30));
    }

    void itShowsThePartThatItLiesOn() {
        Shown shown;
        shown.background.setColors({Qt::red, Qt::blue});
        const QImage atFirst = shown.picture();
        // Redder at the left than at the right, as the background is.
        QVERIFY(atFirst.pixelColor(100, 60).red() > atFirst.pixelColor(320, 170).red() + 40);
        shown.panel.setPosition(QPointF(panelPlace.topLeft()) + QPointF(0, 100));
        const QImage moved = shown.picture();
        QVERIFY(isNear(moved.pixelColor(200, 150), atFirst.pixelColor(200, 150), 2));
        QVERIFY(isNear(moved.pixelColor(5, 5), atFirst.pixelColor(5, 5)));
        shown.background.setMirrored(true);
        const QImage mirrored = shown.picture();
        QVERIFY(mirrored.pixelColor(100, 160).red() + 40 < mirrored.pixelColor(320, 160).red());
    }

    void itsCornersAreRound() {
        Shown shown;
        const QImage picture = shown.picture();
        const QColor behind = picture.pixelColor(5, 5);
        for (const QPoint corner : {panelPlace.topLeft(), panelPlace.bottomRight(), panelPlace.topRight()})
            QVERIFY(isNear(picture.pixelColor(corner), behind));
        // Where the diagonal of a corner meets its curve, about as on a circle.
        const int inset = static_cast<int>(32 * (1 - std::sqrt(0.5)));
        QVERIFY(isNear(picture.pixelColor(panelPlace.topLeft() + QPoint(inset - 3, inset - 3)), behind));
        QVERIFY(isNear(picture.pixelColor(panelPlace.topLeft() + QPoint(inset + 3, inset + 3)), shown.middle()));
        QVERIFY(isNear(picture.pixelColor(panelPlace.center().x(), panelPlace.top()), shown.middle()));
    }

    void itBlursTheDesktop() {
        Shown shown;
        DesktopBackdrop backdrop;
        backdrop.take(stripedDesktop(), 1);
        shown.background.setBackdrop(&backdrop);
        const QImage picture = shown.picture();
        const QColor onStripes = picture.pixelColor(300, 110);
        for (int x = 290; x < 310; ++x)
            QVERIFY(isNear(picture.pixelColor(x, 110), onStripes, 6));
        // What is green behind is green in front, and has the blue of the stripes on the other side.
        QVERIFY(picture.pixelColor(60, 110).green() > onStripes.green());
        QVERIFY(picture.pixelColor(60, 110).blue() < onStripes.blue());
        // It is seen through the material twice: the background's and this one.
        QVERIFY(!isNear(picture.pixelColor(80, 110), picture.pixelColor(20, 110), 5));
    }

    void itLetsGoOfADesktopThatIsPutAway() {
        Shown shown;
        const QImage without = shown.picture();
        DesktopBackdrop backdrop;
        shown.background.setBackdrop(&backdrop);
        backdrop.take(stripedDesktop(), 1);
        QVERIFY(shown.middle() != without.pixelColor(panelPlace.center()));
        backdrop.release();
        QVERIFY(backdrop.isNull());
        QCOMPARE(shown.picture(), without);
    }

    void itsShadowIsOutsideOfIt() {
        Shown shown;
        shown.background.setColors({Qt::white});
        const QColor plain = shown.middle();
        shown.panel.setProperty("shadowOpacity", darkness);
        shown.panel.setProperty("shadowRadius", 12);
        shown.panel.setProperty("shadowOffset", 10);
        const QImage picture = shown.picture();
        QCOMPARE(shown.middle(), plain);
        // Half as dark where its edge is, ten points below the panel's.
        const int x = panelPlace.center().x();
        const int edge = (picture.pixelColor(x, panelPlace.bottom() + 10).red() +
                          picture.pixelColor(x, panelPlace.bottom() + 11).red()) /
                         2;
        QVERIFY2(std::abs(edge - 255 * (1 - darkness / 2)) <= 4, qPrintable(QString::number(edge)));
        QCOMPARE(picture.pixelColor(x, panelPlace.bottom() + 40), QColor(Qt::white));
    }

    void withoutABackgroundItIsNothing() {
        Shown shown;
        shown.panel.setBackground(nullptr);
        QVERIFY(isNear(shown.middle(), shown.picture().pixelColor(5, 5)));
    }
};

QTEST_MAIN(MaterialItemTest)
#include "MaterialItemTest.moc"
