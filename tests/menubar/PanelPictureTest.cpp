#include "menubar/PanelPicture.h"

#include "iconart/Material.h"

#include <QTest>

using namespace zelmo;

namespace {

constexpr QSizeF size(294, 280);

QImage plain(const QColor& color, double scale = 1) {
    QImage image((size * scale).toSize(), QImage::Format_RGB32);
    image.fill(color);
    return image;
}

void compareColors(const QColor& actual, const QColor& expected) {
    const auto near = [](int one, int other) { return std::abs(one - other) <= 2; };
    QVERIFY2(near(actual.red(), expected.red()) && near(actual.green(), expected.green()) &&
                 near(actual.blue(), expected.blue()) && near(actual.alpha(), expected.alpha()),
             qPrintable(actual.name(QColor::HexArgb) + u" is not " + expected.name(QColor::HexArgb)));
}

QColor scaled(const QColor& color, double factor) {
    return QColor::fromRgbF(static_cast<float>(color.redF() * factor), static_cast<float>(color.greenF() * factor),
                            static_cast<float>(color.blueF() * factor));
}

} // namespace

class PanelPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theMaterialLiesUnderBlackAt58Hundredths() {
        const QImage behind = plain(QColor(230, 120, 60));
        const QImage picture = paintPanel({.size = size, .scale = 1, .behind = behind, .edge = PanelEdge::cut});
        const QColor material = throughMaterial(behind, 1, MaterialStyle::ultraThin()).pixelColor(147, 140);
        compareColors(picture.pixelColor(147, 140), scaled(material, 1 - 0.58));
    }

    void withoutAPictureThePanelIsItsMaterialsTint() {
        const QImage picture = paintPanel({.size = size, .scale = 1, .behind = {}, .edge = PanelEdge::cut});
        QColor tint = MaterialStyle::ultraThin().tint;
        tint.setAlpha(255);
        compareColors(picture.pixelColor(147, 140), scaled(tint, 1 - 0.58));
    }

    void theOutlineIsHalfOfALineOfWhiteAt12Hundredths() {
        // At two pixels to the point, the half inside is one pixel wide.
        const QImage picture = paintPanel({.size = size, .scale = 2, .behind = {}, .edge = PanelEdge::cut});
        const QColor inside = picture.pixelColor(4, 280);
        const auto over = [](float channel) { return channel + 0.12F * (1 - channel); };
        const QColor edge = QColor::fromRgbF(over(inside.redF()), over(inside.greenF()), over(inside.blueF()));
        compareColors(picture.pixelColor(0, 280), edge);
        compareColors(picture.pixelColor(1, 280), inside);
    }

    void theCornersAreRoundWithARadiusOf24() {
        const QImage picture = paintPanel({.size = size, .scale = 1, .behind = {}, .edge = PanelEdge::cut});
        // On the diagonal, the circle begins this far from the corner.
        const double begin = 24 - 24 / std::sqrt(2.0);
        QCOMPARE(picture.pixelColor(static_cast<int>(begin) - 1, static_cast<int>(begin) - 1).alpha(), 0);
        QCOMPARE(picture.pixelColor(static_cast<int>(begin) + 1, static_cast<int>(begin) + 1).alpha(), 255);
        QCOMPARE(picture.pixelColor(24, 0).alpha(), 255);
        QVERIFY(picture.pixelColor(15, 0).alpha() < 255);
        QCOMPARE(picture.pixelColor(293, 279).alpha(), 0);
    }

    void theShadowFallsBelow() {
        for (const double scale : {1.0, 2.0}) {
            const QImage picture = paintPanel({.size = size, .scale = scale, .behind = {}});
            const int margin = panelMargin(PanelEdge::blended, scale);
            QVERIFY(margin >= 18 * scale);
            QCOMPARE(picture.size(), (size * scale).toSize() + QSize(2 * margin, 2 * margin));
            const int middle = picture.width() / 2;
            const int lower = picture.height() - margin; // the first line below the panel
            const auto alpha = [&](int y) { return picture.pixelColor(middle, y).alphaF(); };
            // Where the blurred edge of the shadow is, half of its opacity.
            QVERIFY(std::abs(alpha(lower + static_cast<int>(12 * scale)) - 0.12F) < 0.01F);
            QVERIFY(alpha(lower) > 0.2F);
            QVERIFY(alpha(margin - 1) < 0.05F);
            QCOMPARE(picture.pixelColor(middle, margin + 10).alpha(), 255);
        }
    }

    void cutCornersBlendWithWhatTheyCover() {
        const QImage behind = plain(Qt::white);
        const QImage picture = paintPanel({.size = size, .scale = 1, .behind = behind, .edge = PanelEdge::cut});
        compareColors(picture.pixelColor(0, 0), Qt::white);
        QCOMPARE(panelMargin(PanelEdge::cut, 2), 0);
    }

    void theRegionHoldsEveryPointThatThePanelTouches() {
        const QRegion region = panelOutlineRegion(size.toSize());
        const QImage picture = paintPanel({.size = size, .scale = 1, .behind = {}, .edge = PanelEdge::cut});
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                QCOMPARE(region.contains(QPoint(x, y)), picture.pixelColor(x, y).alpha() > 0);
        }
    }

    void nothingHasNoPicture() { QVERIFY(paintPanel({.size = {}, .scale = 1, .behind = {}}).isNull()); }
};

QTEST_GUILESS_MAIN(PanelPictureTest)
#include "PanelPictureTest.moc"
